#include "bells/suonerie.h"

#include "registry/field_value.h"

#include <algorithm>

namespace orlo
{

namespace
{

constexpr std::u16string_view kTable = u"Suonerie";

/// The columns with their fields, in the order of the table.
template <typename Row, typename Column>
void ForEachColumn(Row& row, const Column& column)
{
    column(u"Terminale", row.Terminale);
    column(u"Locazione", row.Locazione);
    column(u"Ora", row.Ora);
    column(u"Minuti", row.Minuti);
    column(u"Giorni", row.Giorni);
    column(u"Numero_Relè", row.NumeroRele);
    column(u"Tempo_Relè", row.TempoRele);
}

struct DefinitionIn {
    jet::TableDefinition& table;

    void operator()(const char16_t* name, std::int32_t) const
    {
        table.columns.push_back({name, jet::ColumnType::Integer, sizeof(std::int16_t)});
    }
    void operator()(const char16_t* name, const QString&) const
    {
        table.columns.push_back({name, jet::ColumnType::Text, kDayFlags});
    }
};

struct TakenFrom {
    jet::Recordset& rows;

    void operator()(const char16_t* name, std::int32_t& field) const
    {
        field = IntegerField<std::int32_t>(rows, name).value_or(field);
    }
    void operator()(const char16_t* name, QString& field) const
    {
        field = TextField(rows, name).value_or(field);
    }
};

struct SetIn {
    jet::Recordset& rows;

    void operator()(const char16_t* name, std::int32_t field) const { rows.SetField(name, field); }
    void operator()(const char16_t* name, const QString& field) const
    {
        rows.SetField(name, field.toStdU16String());
    }
};

BellRow CurrentRow(jet::Recordset& rows)
{
    BellRow row;
    ForEachColumn(row, TakenFrom{rows});
    return row;
}

bool HasTable(const jet::Database& database)
{
    return std::ranges::any_of(database.TableDefs(), [](const jet::TableInfo& table) {
        return QStringView(table.name).compare(QStringView(kTable), Qt::CaseInsensitive) == 0;
    });
}

/// At the end when the position has no row.
void MoveToPosition(jet::Recordset& rows, std::int32_t position)
{
    while (!rows.AtEof() && IntegerField<std::int32_t>(rows, u"Locazione") != position)
        rows.MoveNext();
}

}  // namespace

void CreaTabellaSuonerie(jet::Database& database)
{
    if (HasTable(database)) return;
    jet::TableDefinition table;
    table.name = kTable;
    const BellRow row;
    ForEachColumn(row, DefinitionIn{table});
    database.CreateTable(table);
}

std::u16string BellQuery(int terminal)
{
    return QStringLiteral(
               "SELECT DISTINCTROW Suonerie.Terminale, Suonerie.Locazione, "
               "Suonerie.Ora , Suonerie.Giorni, Suonerie.Numero_Relè, "
               "Suonerie.Tempo_Relè, Suonerie.Minuti FROM Suonerie "
               "WHERE ((Suonerie.Terminale=%1));")
        .arg(terminal)
        .toStdU16String();
}

std::vector<BellRow> LoadBellRows(jet::Database& database, int terminal)
{
    std::vector<BellRow> loaded;
    for (const auto rows = database.OpenQuery(BellQuery(terminal)); !rows->AtEof();
         rows->MoveNext())
        loaded.push_back(CurrentRow(*rows));
    return loaded;
}

// A change begun and not made ends with its cursor.
void StoreBellRow(jet::Database& database, const BellRow& row)
{
    const auto rows = database.OpenQuery(BellQuery(row.Terminale));
    MoveToPosition(*rows, row.Locazione);
    if (rows->AtEof())
        rows->AddNew();
    else
        rows->Edit();
    ForEachColumn(row, SetIn{*rows});
    rows->Update();
}

}  // namespace orlo
