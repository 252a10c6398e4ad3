#pragma once

#include "jet/index_order.h"
#include "jet/name_map.h"
#include "jet/recordset.h"
#include "jet/table.h"

namespace jet
{

/// The engine's recordset: a table, the order chosen, and the place in it.
class TableCursor final : public Recordset
{
public:
    /// The file must outlive the cursor.
    TableCursor(PageFile& file, std::shared_ptr<const TableLayout> definition);

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

private:
    enum class Place {
        OnRow,
        BeforeFirst,
        BehindLast,
        Empty,    ///< the table has no row: before the first and behind the last at once
        Nowhere,  ///< after a search without result
    };

    template <typename Step>
    void GoTo(Step step, Place otherwise);
    KeyBytes SearchKey(const std::vector<Value>& values) const;

    Table table_;
    NameMap columns_;
    NameMap indexes_;
    std::unique_ptr<RowOrder> order_;
    IndexOrder* index_order_ = nullptr;  // order_ when an index is chosen
    const RealIndex* index_ = nullptr;   // the one chosen
    Place place_ = Place::Nowhere;
    std::optional<Row> row_;  // the current one
    bool no_match_ = false;
};

}  // namespace jet
