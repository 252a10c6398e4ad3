#include "registry/schema_upgrade.h"

#include <QString>

#include <algorithm>
#include <array>

namespace orlo
{

namespace
{

using enum jet::ColumnType;

struct LaterColumn {
    const char* searched;  // upper case, as it is looked for in the error's text
    std::u16string_view name;
    jet::ColumnType type;
    int size;
};

// The order matters: a name that contains another one stands before it (INIZIOIMPIANTO and
// LENIMPIANTO before IMPIANTO, ABILITAZIONE_MODEM before MODEM).
constexpr std::array<LaterColumn, 16> kLaterColumns = {{
    {"RITARDO", u"Ritardo", Single, 4},
    {"NOMECARD", u"NomeCard", Text, 20},
    {"LENCARD", u"LenCard", Integer, 2},
    {"BIDIREZIONALE", u"Bidirezionale", YesNo, 1},
    {"INIZIOIMPIANTO", u"InizioImpianto", Integer, 2},
    {"LENIMPIANTO", u"LenImpianto", Integer, 2},
    {"INIZIOAZIENDA", u"InizioAzienda", Integer, 2},
    {"LENAZIENDA", u"LenAzienda", Integer, 2},
    {"INIZIOBADGE", u"InizioBadge", Integer, 2},
    {"LENBADGE", u"LenBadge", Integer, 2},
    {"TENTATIVI", u"Tentativi", Integer, 2},
    {"IMPIANTO", u"Impianto", Integer, 2},
    {"ABILITAZIONE_MODEM", u"Abilitazione_Modem", YesNo, 1},
    {"TIPO", u"Tipo", Integer, 2},
    {"MODEM", u"Modem", Text, 20},
    {"PRIORITA_SECONDARIA", u"Priorita_Secondaria", Integer, 2},
}};

constexpr std::u16string_view kTable = u"TERMINALI";
constexpr std::u16string_view kDelayColumn = u"Ritardo";
constexpr float kFirstRowDelay = 0.5F;

const LaterColumn* FirstNamedIn(const QString& error_text)
{
    const QString text = error_text.toUpper();
    const auto found = std::find_if(
        kLaterColumns.begin(), kLaterColumns.end(),
        [&](const LaterColumn& column) { return text.contains(QLatin1String(column.searched)); });
    return found == kLaterColumns.end() ? nullptr : &*found;
}

void SetFirstRowsDelay(jet::Recordset& rows)
{
    if (rows.AtEof()) return;
    rows.Edit();
    rows.SetField(kDelayColumn, kFirstRowDelay);
    rows.Update();
}

}  // namespace

bool NuovoCampo(ProgramState& state, const jet::Error& error)
{
    const LaterColumn* const column = FirstNamedIn(QString::fromUtf8(error.what()));
    if (column == nullptr) return false;
    state.TerminalsRecordset.reset();
    state.Database->AppendColumn(kTable,
                                 {std::u16string(column->name), column->type, column->size});
    state.TerminalsRecordset = state.Database->OpenTable(kTable);
    if (column->name == kDelayColumn) SetFirstRowsDelay(*state.TerminalsRecordset);
    return true;
}

}  // namespace orlo
