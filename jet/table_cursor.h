#pragma once

#include "jet/index_order.h"
#include "jet/name_map.h"
#include "jet/query.h"
#include "jet/recordset.h"
#include "jet/row_image.h"
#include "jet/table.h"

namespace jet
{

/// The engine's recordset: a table, or what a query leaves of it; the order chosen, the place in
/// it, and the change begun.
class TableCursor final : public Recordset
{
public:
    /// The file must outlive the cursor. Errors: kColumnNotFound when the query names a column
    /// that the table does not have.
    TableCursor(PageFile& file, std::uint32_t definition_page, std::optional<Query> query = {});

    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;
    bool AtBof() const override;
    bool AtEof() const override;
    std::size_t RecordCount() override;
    Value Field(std::u16string_view column) override;
    void SetIndex(std::u16string_view name) override;
    void Seek(const std::vector<Value>& key) override;
    bool NoMatch() const override { return no_match_; }

    void Edit() override;
    void AddNew() override;
    void SetField(std::u16string_view column, const Value& value) override;
    void Update() override;
    void CancelUpdate() override { pending_.reset(); }
    void Delete() override;

private:
    enum class Place {
        OnRow,
        Deleted,  ///< the row has gone; its neighbours are known
        BeforeFirst,
        BehindLast,
        Empty,    ///< the table has no row: before the first and behind the last at once
        Nowhere,  ///< after a search without result
    };

    /// A change begun by Edit or AddNew.
    struct Pending {
        bool adding = false;
        RowImage image;
        std::vector<std::pair<std::size_t, Value>> set;  // column's place in the definition
    };

    PageFile& File() const { return table_.File(); }
    const TableLayout& Layout() const { return table_.Definition(); }

    void NameColumns();
    void Synchronise();
    std::unique_ptr<RowOrder> MakeFileOrder();
    std::size_t ColumnPlace(std::u16string_view name);
    template <typename Step>
    void GoTo(Step step, Place otherwise);
    KeyBytes SearchKey(const std::vector<Value>& values) const;

    void RequireWritable() const;
    void UpdateRow(const RowImage& image);
    RowImage WithValuesSet(RowImage image) const;

    Table table_;
    std::optional<Query> query_;
    NameMap columns_;
    NameMap indexes_;
    std::unique_ptr<RowOrder> order_;
    std::optional<std::size_t> index_;   // place in real_indexes of the one chosen
    IndexOrder* index_order_ = nullptr;  // then order_
    Place place_ = Place::Nowhere;
    RowPointer home_;         // of the current row
    std::optional<Row> row_;  // the current one
    bool no_match_ = false;
    std::optional<Pending> pending_;
    std::uint64_t changes_seen_ = 0;
    std::uint64_t schema_changes_seen_ = 0;
};

}  // namespace jet
