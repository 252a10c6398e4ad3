#include "jetfile/dump.h"

#include "jetfile/json_text.h"
#include "jetfile/type_name.h"
#include "jetfile/value_form.h"

#include <algorithm>
#include <numeric>
#include <ostream>

namespace jetfile
{

namespace
{

/// "a, b, c" of what `form` makes of each.
template <typename Range, typename Form>
std::string Joined(const Range& range, const Form& form)
{
    std::string joined;
    for (const auto& element : range) {
        if (!joined.empty()) joined += ", ";
        joined += form(element);
    }
    return joined;
}

std::string ColumnForm(const jet::ColumnLayout& column)
{
    return "{\"name\": " + JsonString(column.name) +
           ", \"type\": " + JsonString(TypeName(column.type)) +
           ", \"len\": " + std::to_string(column.length) +
           ", \"id\": " + std::to_string(column.id) + ", \"fixed\": " + JsonBool(column.fixed) +
           ", \"auto\": " + JsonBool(column.autonumber) + "}";
}

std::string Kind(const TableSchema& table, std::size_t index)
{
    if (table.layout.logical_indexes[index].primary) return "primary";
    return table.relations[index] ? "foreign" : "plain";
}

std::string IndexForm(const TableSchema& schema, std::size_t number)
{
    const jet::TableLayout& table = schema.layout;
    const jet::LogicalIndex& index = table.logical_indexes[number];
    const jet::RealIndex& real = table.real_indexes[index.real];
    const auto key_form = [&table](const jet::KeyColumn& key) {
        return "[" + JsonString(table.columns[key.column].name) + ", " +
               (key.ascending ? "\"asc\"" : "\"desc\"") + "]";
    };
    return "{\"name\": " + JsonString(index.name) +
           ", \"kind\": " + JsonString(Kind(schema, number)) +
           ", \"unique\": " + JsonBool(real.unique) +
           ", \"ignorenull\": " + JsonBool(real.ignore_nulls) +
           ", \"required\": " + JsonBool(real.required) + ", \"columns\": [" +
           Joined(real.columns, key_form) + "]}";
}

std::vector<std::size_t> IndexesByName(const jet::TableLayout& table)
{
    std::vector<std::size_t> indexes(table.logical_indexes.size());
    std::iota(indexes.begin(), indexes.end(), std::size_t{0});
    std::ranges::stable_sort(
        indexes, {}, [&](std::size_t i) -> const auto& { return table.logical_indexes[i].name; });
    return indexes;
}

std::string RowForm(const TableSchema& table, jet::Recordset& rows)
{
    const auto member = [&rows](const jet::ColumnLayout& column) {
        return JsonString(column.name) + ": " + ValueForm(rows.Field(column.name));
    };
    return "{\"in\": " + JsonString(table.name) + ", \"row\": {" +
           Joined(table.layout.columns, member) + "}}";
}

}  // namespace

void DumpTable(const TableSchema& table, jet::Recordset& rows, std::ostream& out)
{
    const auto indexes = IndexesByName(table.layout);
    out << "{\"table\": " << JsonString(table.name) << ", \"rows\": " << rows.RecordCount()
        << ", \"columns\": [" << Joined(table.layout.columns, ColumnForm) << "], \"indexes\": ["
        << Joined(indexes, [&](std::size_t index) { return IndexForm(table, index); }) << "]}\n";

    std::vector<std::string> lines;
    for (rows.MoveFirst(); !rows.AtEof(); rows.MoveNext()) {
        lines.push_back(RowForm(table, rows));
    }
    std::ranges::sort(lines);
    for (const std::string& line : lines) out << line << '\n';
}

}  // namespace jetfile
