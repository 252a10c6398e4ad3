#include "registry/register_loader.h"

#include "registry/database_error.h"
#include "registry/field_value.h"
#include "registry/list_line.h"
#include "registry/schema_upgrade.h"
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

/// Reads the current row into its slot and adds its line; true for an Orlo or a Sipa.
bool TakeRow(Contenitore& window)
{
    ProgramState& state = window.State();
    jet::Recordset& row = *state.TerminalsRecordset;
    const std::int16_t number = SlotNumber(row);
    TerminalRecord& slot = state.TerminalTable[static_cast<std::size_t>(number - 1)];
    slot.Terminale = number;
    LoadTerminalRow(row, slot);
    const QString description = TextField(row, u"Descrizione").value_or(slot.Descrizione);
    window.AddTerminalLine(ListLine(number, slot, description));
    const TerminalModel* const model = ModelByCode(slot.Tipo);
    return model != nullptr && model->family == LinkFamily::Object;
}

void MoveToRow(jet::Recordset& rows, std::size_t index)
{
    rows.MoveFirst();
    for (std::size_t row = 0; row < index; ++row) rows.MoveNext();
}

void FillFromRows(Contenitore& window, bool& object_terminals)
{
    ProgramState& state = window.State();
    std::size_t row = 0;
    for (MoveToRow(*state.TerminalsRecordset, row); !state.TerminalsRecordset->AtEof();) {
        try {
            object_terminals = TakeRow(window) || object_terminals;
            ++row;
            state.TerminalsRecordset->MoveNext();
        } catch (const jet::Error& error) {
            if (error.Number() != jet::kColumnNotFound || !NuovoCampo(state, error)) throw;
            // The cursor was reopened on the first row; the row that lacked the column is read
            // again.
            MoveToRow(*state.TerminalsRecordset, row);
        }
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
