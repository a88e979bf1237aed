#include "platform/datagrid.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace platform {

namespace {
const QEvent::Type refreshEvent = static_cast<QEvent::Type>(QEvent::registerEventType());
}

// ---- RecordsetModel -----------------------------------------------------------------------------------

void RecordsetModel::Bind(Recordset* recordset, std::vector<GridColumn> columns) {
    beginResetModel();
    recordset_ = recordset;
    columns_ = std::move(columns);
    FindFields();
    rows_ = Live() ? recordset_->RecordCount() : 0;
    endResetModel();
}

void RecordsetModel::Caption(int column, const QString& caption) {
    columns_.at(static_cast<size_t>(column)).caption = caption;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void RecordsetModel::FindFields() {
    fields_.clear();
    if (!Live()) return;
    for (const GridColumn& column : columns_) fields_.push_back(recordset_->FieldIndex(column.field));
}

void RecordsetModel::Refresh() {
    FindFields(); // the recordset may have been closed and opened
    const qsizetype rows = Live() ? recordset_->RecordCount() : 0;
    const int before = static_cast<int>(rows_);
    const int after = static_cast<int>(rows);
    // Rows are only counted here; what stands in them is told by dataChanged, so nothing is laid out anew.
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        rows_ = rows;
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after, before - 1);
        rows_ = rows;
        endRemoveRows();
    }
    if (after > 0) emit dataChanged(index(0, 0), index(after - 1, columnCount() - 1));
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_);
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !Live()) return {};
    // The recordset may be ahead of the views until the next refresh.
    if (index.row() >= recordset_->RecordCount()) return {};
    if (static_cast<size_t>(index.column()) >= fields_.size()) return {};
    return recordset_->At(index.row(), fields_[static_cast<size_t>(index.column())]).text();
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return columns_[static_cast<size_t>(section)].caption;
}

// ---- DataGrid -----------------------------------------------------------------------------------------

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent)
    , model_(new RecordsetModel(this)) {
    setModel(model_);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false); // Tab goes on to the next control
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

DataGrid::~DataGrid() { Unbind(); }

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    // What the grid does to follow the recordset is no choice of the operator's.
    if (following_ || !source_ || !source_->IsOpen()) return;
    if (!current.isValid() || current.row() >= source_->RecordCount()) return;
    source_->AbsolutePosition(current.row());
    if (choose_) choose_();
}

void DataGrid::focusInEvent(QFocusEvent* event) {
    // The view puts a current row of its own where it has none.
    Refresh();
    const QScopedValueRollback<bool> following(following_, true);
    QTableView::focusInEvent(event);
}

void DataGrid::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    // A click on the row that is current already is a choice too, and takes a recordset along that has gone
    // elsewhere meanwhile.
    if (event->button() != Qt::LeftButton || !source_ || !source_->IsOpen()) return;
    const QModelIndex row = indexAt(event->position().toPoint());
    if (!row.isValid() || row.row() >= source_->RecordCount()) return;
    if (row.row() != source_->AbsolutePosition()) source_->AbsolutePosition(row.row());
    if (choose_) choose_();
}

void DataGrid::Bind(Recordset* recordset, const std::vector<GridColumn>& columns) {
    if (source_ && source_ != recordset) source_->OnChanged({}, this);
    const QScopedValueRollback<bool> following(following_, true);
    source_ = recordset;
    model_->Bind(recordset, columns);
    for (size_t i = 0; i < columns.size(); ++i) setColumnWidth(static_cast<int>(i), columns[i].width);
    if (source_) source_->OnChanged([this] { Schedule(); }, this);
    Schedule();
}

void DataGrid::Unbind() {
    if (source_) source_->OnChanged({}, this);
    const QScopedValueRollback<bool> following(following_, true);
    source_ = nullptr;
    model_->Bind(nullptr, model_->Columns());
}

QString DataGrid::Caption(int column) const {
    return model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

void DataGrid::Schedule() {
    if (scheduled_) return;
    scheduled_ = true;
    QCoreApplication::postEvent(this, new QEvent(refreshEvent), Qt::HighEventPriority);
}

bool DataGrid::event(QEvent* event) {
    if (event->type() != refreshEvent) return QTableView::event(event);
    Refresh();
    return true;
}

void DataGrid::Refresh() {
    scheduled_ = false;
    if (!source_) return;
    const QScopedValueRollback<bool> following(following_, true);
    model_->Refresh();
    if (refreshed_) refreshed_();
    const qsizetype current = source_->IsOpen() ? source_->AbsolutePosition() : -1;
    if (current < 0) {
        selectionModel()->clear();
        if (source_->IsOpen() && source_->IsEOF()) scrollToBottom();
        return;
    }
    const QModelIndex row = model_->index(static_cast<int>(current), 0);
    selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(row);
}

} // namespace platform
