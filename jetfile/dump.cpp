#include "jetfile/dump.h"

#include "jetfile/json_text.h"
#include "jetfile/type_name.h"
#include "jetfile/value_form.h"

#include <algorithm>
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

std::string Kind(const jet::LogicalIndex& index)
{
    if (index.primary) return "primary";
    return index.of_relation ? "foreign" : "plain";
}

std::string IndexForm(const jet::TableLayout& table, const jet::LogicalIndex& index)
{
    const jet::RealIndex& real = table.real_indexes[index.real];
    const auto key_form = [&table](const jet::KeyColumn& key) {
        return "[" + JsonString(table.columns[key.column].name) + ", " +
               (key.ascending ? "\"asc\"" : "\"desc\"") + "]";
    };
    return "{\"name\": " + JsonString(index.name) + ", \"kind\": " + JsonString(Kind(index)) +
           ", \"unique\": " + JsonBool(real.unique) +
           ", \"ignorenull\": " + JsonBool(real.ignore_nulls) +
           ", \"required\": " + JsonBool(real.required) + ", \"columns\": [" +
           Joined(real.columns, key_form) + "]}";
}

std::vector<jet::LogicalIndex> IndexesByName(const jet::TableLayout& table)
{
    std::vector<jet::LogicalIndex> indexes = table.logical_indexes;
    std::ranges::stable_sort(indexes, {}, &jet::LogicalIndex::name);
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
    const auto index_form = [&table](const jet::LogicalIndex& index) {
        return IndexForm(table.layout, index);
    };
    out << "{\"table\": " << JsonString(table.name) << ", \"rows\": " << rows.RecordCount()
        << ", \"columns\": [" << Joined(table.layout.columns, ColumnForm) << "], \"indexes\": ["
        << Joined(IndexesByName(table.layout), index_form) << "]}\n";

    std::vector<std::string> lines;
    for (rows.MoveFirst(); !rows.AtEof(); rows.MoveNext()) {
        lines.push_back(RowForm(table, rows));
    }
    std::ranges::sort(lines);
    for (const std::string& line : lines) out << line << '\n';
}

}  // namespace jetfile
