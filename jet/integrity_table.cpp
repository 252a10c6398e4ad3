#include "jet/column_value.h"
#include "jet/data_page_writer.h"
#include "jet/definition_stream.h"
#include "jet/integrity_report.h"
#include "jet/long_value.h"

#include <algorithm>

namespace jet
{

namespace
{

class TableCheck
{
public:
    TableCheck(IntegrityReport& report, std::uint32_t page, const std::string& name)
        : report_(report),
          name_(name),
          table_(report.File(),
                 std::make_shared<TableLayout>(ReadTableDefinition(report.File(), page)))
    {
    }

    void Run()
    {
        CheckDefinition();
        CheckMaps();
        for (const std::uint32_t page : table_.DataPages()) {
            report_.CheckRowPage(page, name_);
            report_.Try(name_, [&] { CheckPage(page); });
        }
        for (const RowPointer target : targets_) {
            if (std::ranges::count(moved_data_, target) != 1) {
                report_.Find(name_ + ": riga spostata che non c'è o che è di due.");
            }
        }
        if (moved_data_.size() != targets_.size()) {
            report_.Find(name_ + ": dati spostati che nessuna riga usa.");
        }
        CheckRowCount();
        for (std::size_t i = 0; i < Layout().real_indexes.size(); ++i) {
            const std::string index = name_ + ", indice " + std::to_string(i);
            report_.Try(index, [&] {
                CheckIndex(report_, table_, Layout().real_indexes[i], homes_, index);
            });
        }
    }

private:
    const TableLayout& Layout() const { return table_.Definition(); }

    void CheckDefinition()
    {
        for (const std::uint32_t page : DefinitionPages(report_.File(), Layout().page)) {
            report_.Own(page, "definizione di " + name_);
        }
        if (!Layout().ends_well) {
            report_.Find(name_ + ": la definizione non finisce dove dice.");
        }
        std::set<std::uint16_t> slots;
        for (const ColumnLayout& column : Layout().columns) {
            if (!column.fixed && !slots.insert(column.slot).second) {
                report_.Find(name_ + ": due campi nello stesso posto.");
            }
            for (const ColumnLayout& other : Layout().columns) {
                if (InFixedPart(column) && InFixedPart(other) && column.id < other.id &&
                    column.fixed_offset < other.fixed_offset + other.length &&
                    other.fixed_offset < column.fixed_offset + column.length) {
                    report_.Find(name_ + ": due campi nello stesso posto.");
                }
            }
        }
    }

    static bool InFixedPart(const ColumnLayout& column)
    {
        return column.fixed && column.type != ColumnType::YesNo;
    }

    void CheckMaps()
    {
        report_.OwnedBy(Layout().data_map, name_);
        ExpectListed(Layout().free_map, table_.DataPages());
        for (const LongValueMaps& maps : Layout().long_values) {
            const auto pages = report_.OwnedBy(maps.pages, name_ + ", valori lunghi");
            ExpectListed(maps.free, pages);
            for (const std::uint32_t page : pages) {
                report_.CheckRowPage(page, name_ + ", valori lunghi");
                long_value_pages_.insert(page);
            }
        }
    }

    void ExpectListed(RowPointer map, const std::vector<std::uint32_t>& owned)
    {
        for (const std::uint32_t page : report_.ListedIn(map, name_ + ", spazio libero")) {
            if (!std::ranges::binary_search(owned, page)) {
                report_.Find(name_ + ": spazio libero su una pagina non sua.");
            }
        }
    }

    void CheckPage(std::uint32_t number)
    {
        const DataPage page = table_.ReadDataPage(number);
        for (std::size_t row = 0; row < page.RowCount(); ++row) {
            const RowPointer at{number, static_cast<std::uint16_t>(row)};
            if (page.State(row) == RowState::MovedData) {
                moved_data_.push_back(at);
            } else if (IsHome(page.State(row))) {
                homes_.push_back(at);
                report_.Try(name_, [&] { CheckRow(at, page.Row(row)); });
            }
        }
    }

    void CheckRow(RowPointer home, const StoredRow& stored)
    {
        if (stored.state == RowState::Moved && stored.bytes.size() >= 4) {
            targets_.push_back(RowPointerAt(stored.bytes, 0));
        }
        const Row row = table_.ReadRow(home);
        if (row.ColumnCount() == Layout().columns_ever &&
            row.SlotCount() != Layout().variable_slots) {
            report_.Find(name_ + ": riga con un altro numero di campi.");
        }
        for (const ColumnLayout& column : Layout().columns) {
            ReadColumn(report_.File(), row, column);
            const auto field = IsLong(column.type) ? row.Field(column) : std::nullopt;
            for (const RowPointer piece :
                 field ? LongValueRows(report_.File(), *field) : std::vector<RowPointer>{}) {
                report_.UseLongValueRow(piece, name_);
                if (!long_value_pages_.contains(piece.page)) {
                    report_.Find(name_ + ": valore lungo su una pagina non sua.");
                }
            }
        }
    }

    // In the engine's own tables the count is lower now and then, and nobody minds.
    void CheckRowCount()
    {
        const Page page = report_.File().Read(Layout().page);
        const std::uint32_t count = U32(page.Content(), report_.File().Format().definition.rows);
        if (Layout().user && count != homes_.size()) {
            report_.Find(name_ + ": " + std::to_string(homes_.size()) +
                         " righe, ma la tabella ne " + "dichiara " + std::to_string(count) + ".");
        }
    }

    IntegrityReport& report_;
    std::string name_;
    Table table_;
    std::set<std::uint32_t> long_value_pages_;
    std::vector<RowPointer> homes_;
    std::vector<RowPointer> moved_data_;
    std::vector<RowPointer> targets_;
};

}  // namespace

void CheckTable(IntegrityReport& report, std::uint32_t definition_page, const std::string& name)
{
    TableCheck(report, definition_page, name).Run();
}

}  // namespace jet
