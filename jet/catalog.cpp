#include "jet/catalog.h"

#include "jet/column_value.h"
#include "jet/failure.h"
#include "jet/file_order.h"

#include <algorithm>

namespace jet
{

namespace
{

// The catalog is a table, MSysObjects, whose definition always begins here.
constexpr std::uint32_t kCatalogPage = 2;

constexpr std::int32_t kTableType = 1;
constexpr std::uint32_t kSystemFlags = 0x8000000A;

const ColumnLayout& CatalogColumn(const TableLayout& catalog, std::u16string_view name,
                                  ColumnType type)
{
    const auto column = std::ranges::find(catalog.columns, name, &ColumnLayout::name);
    if (column == catalog.columns.end() || column->type != type) {
        FailDamaged(kCatalogPage, "catalogo delle tabelle illeggibile");
    }
    return *column;
}

template <typename Kind>
Kind Held(const Value& value)
{
    const auto* held = std::get_if<Kind>(&value);
    return held != nullptr ? *held : Kind{};
}

}  // namespace

std::vector<CatalogEntry> ReadCatalog(PageFile& file)
{
    Table table(file, std::make_shared<TableLayout>(ReadTableDefinition(file, kCatalogPage)));
    const TableLayout& definition = table.Definition();
    const auto& id = CatalogColumn(definition, u"Id", ColumnType::Long);
    const auto& name = CatalogColumn(definition, u"Name", ColumnType::Text);
    const auto& type = CatalogColumn(definition, u"Type", ColumnType::Integer);
    const auto& flags = CatalogColumn(definition, u"Flags", ColumnType::Long);

    std::vector<CatalogEntry> entries;
    FileOrder order(table);
    for (auto at = order.First(); at; at = order.Next()) {
        const Row row = table.ReadRow(*at);
        if (Held<std::int32_t>(ReadColumn(file, row, type)) != kTableType) {
            continue;
        }
        const auto set =
            static_cast<std::uint32_t>(Held<std::int32_t>(ReadColumn(file, row, flags)));
        entries.push_back(
            {Held<Text>(ReadColumn(file, row, name)),
             static_cast<std::uint32_t>(Held<std::int32_t>(ReadColumn(file, row, id))),
             (set & kSystemFlags) == 0});
    }
    return entries;
}

}  // namespace jet
