#include "registro/terminal_rows.h"

#include "registry/field_value.h"

#include <algorithm>

namespace orlo::registro
{

namespace
{

constexpr std::u16string_view kTable = u"TERMINALI";
constexpr std::u16string_view kNumber = u"Terminale";

/// Names in a database are the same whatever their case.
bool SameName(std::u16string_view a, std::u16string_view b)
{
    return QStringView(a).compare(QStringView(b), Qt::CaseInsensitive) == 0;
}

jet::Value NumberValue(jet::Recordset& rows, std::u16string_view column)
{
    const auto number = IntegerField<std::int32_t>(rows, column);
    return number ? jet::Value(*number) : jet::Null{};
}

jet::Value FieldValue(jet::Recordset& rows, const TerminalColumn& column)
{
    switch (column.content) {
        case Content::YesNo:
            return WholeNumberField(rows, column.name).value_or(0) != 0;
        case Content::Delay: {
            const auto seconds = SingleField(rows, column.name);
            return seconds ? jet::Value(*seconds) : jet::Null{};
        }
        case Content::Text: {
            const auto text = TextField(rows, column.name);
            return text ? jet::Value(text->toStdU16String()) : jet::Null{};
        }
        default:
            return NumberValue(rows, column.name);
    }
}

jet::Value FieldOrNull(jet::Recordset& rows, const TerminalColumn& column)
{
    try {
        return FieldValue(rows, column);
    } catch (const jet::Error& error) {
        if (error.Number() != jet::kColumnNotFound || column.name == kNumber) throw;
        return jet::Null{};
    }
}

bool HasColumn(const jet::TableInfo& table, const TerminalColumn& column)
{
    return std::ranges::any_of(table.columns, [&](const jet::ColumnInfo& existing) {
        return SameName(existing.name, column.name);
    });
}

TerminalValues CurrentRow(jet::Recordset& rows)
{
    TerminalValues values;
    std::ranges::transform(kTerminalColumns, values.begin(),
                           [&](const TerminalColumn& column) { return FieldOrNull(rows, column); });
    return values;
}

/// A cursor on the row of that terminal, at the end when there is none.
std::unique_ptr<jet::Recordset> RowOf(jet::Database& database, int number)
{
    auto rows = database.OpenTable(kTable);
    while (!rows->AtEof() && IntegerField<std::int32_t>(*rows, kNumber) != number) {
        rows->MoveNext();
    }
    return rows;
}

void SetFirstDelay(jet::Database& database)
{
    const auto rows = database.OpenTable(kTable);
    if (rows->AtEof()) return;
    rows->Edit();
    rows->SetField(kTerminalColumns[kRitardo].name, 0.5F);
    rows->Update();
}

}  // namespace

std::vector<TerminalValues> ReadTerminals(jet::Database& database)
{
    std::vector<TerminalValues> terminals;
    for (const auto rows = database.OpenTable(kTable); !rows->AtEof(); rows->MoveNext())
        terminals.push_back(CurrentRow(*rows));
    std::ranges::stable_sort(terminals, {}, NumberOf);
    return terminals;
}

void AddMissingColumns(jet::Database& database)
{
    const std::vector<jet::TableInfo> tables = database.TableDefs();
    const auto table = std::ranges::find_if(
        tables, [](const jet::TableInfo& candidate) { return SameName(candidate.name, kTable); });
    if (table == tables.end()) return;  // opening it says so
    for (const TerminalColumn& column : kTerminalColumns) {
        if (HasColumn(*table, column)) continue;
        database.AppendColumn(kTable, column.Definition());
        if (column.content == Content::Delay) SetFirstDelay(database);
    }
}

void StoreTerminal(jet::Database& database, const TerminalValues& values)
{
    const auto rows = RowOf(database, NumberOf(values));
    const bool exists = !rows->AtEof();
    const TerminalValues old = exists ? CurrentRow(*rows) : TerminalValues{};
    if (exists)
        rows->Edit();
    else
        rows->AddNew();
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] != old[i]) rows->SetField(kTerminalColumns[i].name, values[i]);
    rows->Update();
}

bool RemoveTerminal(jet::Database& database, int number)
{
    const auto rows = RowOf(database, number);
    if (rows->AtEof()) return false;
    rows->Delete();
    return true;
}

}  // namespace orlo::registro
