#include "jetfile/schema.h"

#include "jet/catalog.h"
#include "jet/failure.h"
#include "jet/file_name.h"
#include "jet/utf8.h"
#include "jetfile/type_name.h"

#include <algorithm>

namespace jetfile
{

namespace
{

// Enough for an order that people look at; the engine itself finds names by its own rules.
std::u16string LowerCase(std::u16string name)
{
    for (char16_t& unit : name) {
        const bool ascii = unit >= u'A' && unit <= u'Z';
        const bool latin = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
        if (ascii || latin) unit = static_cast<char16_t>(unit + 0x20);
    }
    return name;
}

// The engine's journal lies beside the file itself, whatever link leads to it.
std::filesystem::path RealName(const std::filesystem::path& path)
{
    const auto found = jet::FindFile(path);
    std::error_code error;
    const auto real = std::filesystem::canonical(found, error);
    return error ? found : real;
}

int Characters(const jet::ColumnLayout& column, bool unicode)
{
    return column.type == jet::ColumnType::Text && unicode ? column.length / 2 : column.length;
}

bool HasSize(jet::ColumnType type)
{
    return type == jet::ColumnType::Text || type == jet::ColumnType::Binary;
}

std::string ColumnLine(const jet::ColumnLayout& column, bool unicode)
{
    constexpr std::size_t kNameWidth = 20;
    std::string line = "    " + jet::ToUtf8(column.name);
    if (column.name.size() < kNameWidth) line.append(kNameWidth - column.name.size(), ' ');
    line += ' ' + TypeName(column.type);
    if (HasSize(column.type)) line += ' ' + std::to_string(Characters(column, unicode));
    if (column.autonumber) line += ", automatic";
    return line + '\n';
}

std::string IndexLine(const jet::TableLayout& table, const jet::LogicalIndex& index)
{
    const jet::RealIndex& real = table.real_indexes[index.real];
    std::string kind;
    if (index.primary) kind += ", primary";
    if (index.of_relation) kind += ", of a relation";
    if (real.unique) kind += ", unique";
    if (real.required) kind += ", no nulls";
    if (real.ignore_nulls) kind += ", ignores nulls";
    std::string columns;
    for (const jet::KeyColumn& key : real.columns) {
        columns += ", " + jet::ToUtf8(table.columns[key.column].name) +
                   (key.ascending ? "" : " descending");
    }
    return "    index " + jet::ToUtf8(index.name) + ":" + (kind.empty() ? "" : kind.substr(1)) +
           " (" + columns.substr(std::min<std::size_t>(2, columns.size())) + ")\n";
}

}  // namespace

std::vector<TableSchema> ReadSchema(const std::filesystem::path& path,
                                    const std::optional<std::u16string>& only)
{
    jet::PageFile file(RealName(path));
    std::vector<TableSchema> tables;
    for (const jet::CatalogEntry& entry : jet::ReadCatalog(file)) {
        if (only ? LowerCase(entry.name) == LowerCase(*only) : entry.user) {
            tables.push_back(
                {entry.name, jet::ReadTableDefinition(file, entry.page), file.Format().unicode});
        }
    }
    if (only && tables.empty()) jet::FailTableNotFound(*only);
    std::ranges::stable_sort(tables, {}, [](const auto& table) { return LowerCase(table.name); });
    return tables;
}

std::string SchemaText(const TableSchema& table)
{
    std::string text = jet::ToUtf8(table.name) + '\n';
    for (const jet::ColumnLayout& column : table.layout.columns) {
        text += ColumnLine(column, table.unicode);
    }
    for (const jet::LogicalIndex& index : table.layout.logical_indexes) {
        text += IndexLine(table.layout, index);
    }
    return text;
}

}  // namespace jetfile
