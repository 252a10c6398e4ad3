#include "jet/free_page_check.h"

#include "jet/definition_stream.h"
#include "jet/failure.h"
#include "jet/map_bits.h"
#include "jet/table_definition.h"
#include "jet/usage_map.h"

namespace jet
{

namespace
{

constexpr RowPointer kGlobalMap{1, 0};

class UsedPages
{
public:
    explicit UsedPages(PageFile& file) : file_(file), free_(file, kGlobalMap) {}

    void CheckTable(std::uint32_t definition_page)
    {
        for (const std::uint32_t page : DefinitionPages(file_, definition_page)) {
            Check(page);
        }
        const TableLayout table = ReadTableDefinition(file_, definition_page);
        CheckMap(table.data_map);
        CheckMap(table.free_map);
        for (const RealIndex& index : table.real_indexes) {
            Check(index.root);
            CheckMap(index.map);
        }
        for (const LongValueMaps& maps : table.long_values) {
            CheckMap(maps.pages);
            CheckMap(maps.free);
        }
    }

private:
    void Check(std::uint32_t page)
    {
        const auto bit = free_.Find(page);
        if (bit && TestBit(file_, *bit)) {
            FailDamaged(page, "è in uso ma segnata libera");
        }
    }

    void CheckMap(RowPointer map)
    {
        if (map.page == 0) {
            return;
        }
        Check(map.page);
        for (const std::uint32_t page : BitmapPagesOf(file_, map)) {
            Check(page);
        }
        for (const std::uint32_t page : ReadUsageMap(file_, map)) {
            Check(page);
        }
    }

    PageFile& file_;
    MapBits free_;
};

}  // namespace

void CheckNoUsedPageIsFree(PageFile& file, const std::vector<CatalogEntry>& catalog)
{
    UsedPages used(file);
    for (const CatalogEntry& table : catalog) {
        used.CheckTable(table.page);
    }
}

}  // namespace jet
