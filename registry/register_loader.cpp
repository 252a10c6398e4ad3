#include "registry/register_loader.h"

#include "registry/database_error.h"
#include "registry/field_value.h"
#include "registry/list_line.h"
#include "registry/terminal_row.h"

namespace orlo
{

namespace
{

/// A number of a row, from 1 to the number of slots; throws the error of an index out of range.
std::int16_t SlotNumber(jet::Recordset& rows)
{
    constexpr int kOutOfRange = 9;
    const auto number = IntegerField<std::int16_t>(rows, u"Terminale").value_or(0);
    if (number < 1 || number > kTerminalSlots)
        throw jet::Error(kOutOfRange,
                         QStringLiteral("Il numero di terminale %1 non è compreso fra 1 e %2.")
                             .arg(number)
                             .arg(kTerminalSlots)
                             .toStdString());
    return number;
}

void FillFromRows(Contenitore& window, bool& object_terminals)
{
    ProgramState& state = window.State();
    jet::Recordset& rows = *state.TerminalsRecordset;
    for (rows.MoveFirst(); !rows.AtEof(); rows.MoveNext()) {
        const std::int16_t number = SlotNumber(rows);
        TerminalRecord& slot = state.TerminalTable[static_cast<std::size_t>(number - 1)];
        slot.Terminale = number;
        LoadTerminalRow(rows, slot);
        const TerminalModel* const model = ModelByCode(slot.Tipo);
        if (model != nullptr && model->family == LinkFamily::Object) object_terminals = true;
        window.AddTerminalLine(
            ListLine(number, slot, TextField(rows, u"Descrizione").value_or(slot.Descrizione)));
    }
}

}  // namespace

bool RiempeListaTerminali(Contenitore& window)
{
    bool object_terminals = false;
    try {
        FillFromRows(window, object_terminals);
    } catch (const jet::Error& error) {
        window.ShowRemark(QStringLiteral("Il registro non è stato letto fino in fondo:%1")
                              .arg(DatabaseErrorText(error)));
    }
    window.SelectTerminalLine(0);
    return object_terminals;
}

}  // namespace orlo
