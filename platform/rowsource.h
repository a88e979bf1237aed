#pragma once

#include "platform/filter.h"
#include "platform/rowset.h"
#include "platform/selecttext.h"
#include "platform/tableimage.h"

#include <memory>

namespace platform {

/// Brings the rows of a table image, as a cursor's source text wants them, into the cursor's row set.
class RowSource {
public:
    struct Field {
        QString name;
        Column column;
    };

    virtual ~RowSource() = default;

    /// @throws Failure for an unknown column
    static std::unique_ptr<RowSource> make(std::shared_ptr<TableImage> image, const SelectText& select,
                                           CellPool& pool);

    const std::vector<Field>& fields() const { return fields_; }
    TableImage& image() const { return *image_; }
    /// The order of the rows where no sort tells them apart.
    virtual SortKeys naturalOrder() const { return {}; }

    /// Takes over what has changed in the image since the last time; everything at first.
    void refresh(RowSet& rows);
    /// Tells that the row set has already taken over the change just noted in the image.
    void skipOwnChange();

protected:
    explicit RowSource(std::shared_ptr<TableImage> image)
        : image_(std::move(image)) {}

    virtual void load(RowSet& rows) = 0;
    virtual void apply(RowSet& rows, const TableImage::Change& change) = 0;
    /// Whether WHERE lets the row through.
    bool isWanted(const Row& row) const;

    std::vector<Field> fields_;

private:
    void setExcept(const SelectText::Except& except, CellPool& pool);

    std::shared_ptr<TableImage> image_;
    /// What WHERE NOT names.
    std::optional<Comparison> except_;
    std::optional<qint64> version_;
};

} // namespace platform
