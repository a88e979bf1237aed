#pragma once

#include "platform/recordset.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <functional>

namespace platform {

/// One column of a bound grid.
struct GridColumn {
    QString field;
    QString caption;
    int width; ///< pixels
};

/// The rows of a recordset as a table model, read on demand: only what is on screen is ever looked at.
class RecordsetModel : public QAbstractTableModel {
public:
    explicit RecordsetModel(QObject* parent)
        : QAbstractTableModel(parent) {}

    /// nullptr shows nothing.
    void Bind(Recordset* recordset, std::vector<GridColumn> columns);
    void Caption(int column, const QString& caption);
    /// Tells the views what the recordset shows now.
    void Refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    const std::vector<GridColumn>& Columns() const { return columns_; }

private:
    bool Live() const { return recordset_ && recordset_->IsOpen(); }
    void FindFields();

    Recordset* recordset_ = nullptr;
    std::vector<GridColumn> columns_;
    std::vector<int> fields_;
    qsizetype rows_ = 0;
};

/// A grid bound to a recordset. It follows the recordset by itself, once each time the program comes back
/// to its event loop however often the recordset changed, and keeps the recordset's current row in view. The
/// row that the operator chooses in it, by mouse or keys, becomes the recordset's current one.
class DataGrid : public QTableView {
public:
    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    void Bind(Recordset* recordset, const std::vector<GridColumn>& columns);
    void Unbind();
    Recordset* Source() const { return source_; }
    bool Bound() const { return source_ != nullptr; }
    void Caption(int column, const QString& caption) { model_->Caption(column, caption); }
    QString Caption(int column) const;
    /// The operator has chosen a row; it is the recordset's current one.
    void OnChoose(std::function<void()> choose) { choose_ = std::move(choose); }
    /// The grid has been brought up to date.
    void OnRefresh(std::function<void()> refreshed) { refreshed_ = std::move(refreshed); }
    /// Brings the grid up to date now.
    void Refresh();

protected:
    bool event(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Schedule();

    RecordsetModel* model_;
    Recordset* source_ = nullptr;
    std::function<void()> choose_;
    std::function<void()> refreshed_;
    bool scheduled_ = false;
    bool following_ = false;
};

} // namespace platform
