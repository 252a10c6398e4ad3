#include "registry/terminal_row.h"

#include "registry/field_value.h"

namespace orlo
{

namespace
{

/// The current row's values, taken into the fields of a slot.
class TakenFrom
{
public:
    explicit TakenFrom(jet::Recordset& row) : row_(row) {}

    template <typename Integer>
    void operator()(Integer& field, std::u16string_view column) const
    {
        if (const auto value = IntegerField<Integer>(row_, column)) field = *value;
    }
    void operator()(float& field, std::u16string_view column) const
    {
        if (const auto value = SingleField(row_, column)) field = *value;
    }
    /// Texts are padded with blanks, or cut, to the width of their field.
    void operator()(QString& field, std::u16string_view column, int width) const
    {
        if (const auto value = TextField(row_, column))
            field = value->left(width).leftJustified(width);
    }
    void YesNo(std::int16_t& field, std::u16string_view column) const { (*this)(field, column); }

private:
    jet::Recordset& row_;
};

/// The fields of a slot, set in the current row.
class SetIn
{
public:
    explicit SetIn(jet::Recordset& row) : row_(row) {}

    void operator()(std::int32_t field, std::u16string_view column) const
    {
        row_.SetField(column, field);
    }
    void operator()(float field, std::u16string_view column) const { row_.SetField(column, field); }
    void operator()(const QString& field, std::u16string_view column, int width) const
    {
        row_.SetField(column, field.left(width).leftJustified(width).toStdU16String());
    }
    void YesNo(std::int16_t field, std::u16string_view column) const
    {
        row_.SetField(column, field != kFalse);
    }

private:
    jet::Recordset& row_;
};

/// Every column of the register but the number, in the order of reading and writing.
template <typename Slot, typename Column>
void ForEachColumn(Slot& slot, const Column& column)
{
    column(slot.Tipo, u"TIPO");
    column(slot.Funzionamento, u"Funzionamento");
    column(slot.Descrizione, u"Descrizione", kDescriptionWidth);
    column.YesNo(slot.Attivo, u"Attivo");
    column(slot.Modalita, u"Modalita");
    column(slot.Porta, u"Porta");
    column(slot.Priorita, u"Priorita");
    column(slot.PrioritaSecondaria, u"Priorita_Secondaria");
    column(slot.Velocita, u"Velocita");
    column(slot.Modem, u"Modem", kPhoneWidth);
    column.YesNo(slot.AbilitazioneModem, u"Abilitazione_Modem");
    column(slot.Impianto, u"Impianto");
    column(slot.Tentativi, u"Tentativi");
    column(slot.Ritardo, u"Ritardo");
    column(slot.NomeCard, u"NomeCard", kCardNameWidth);
    column(slot.LenCard, u"LenCard");
    column.YesNo(slot.Bidirezionale, u"Bidirezionale");
    column(slot.InizioImpianto, u"InizioImpianto");
    column(slot.InizioAzienda, u"InizioAzienda");
    column(slot.InizioBadge, u"InizioBadge");
    column(slot.LenImpianto, u"LenImpianto");
    column(slot.LenAzienda, u"LenAzienda");
    column(slot.LenBadge, u"LenBadge");
}

}  // namespace

void LoadTerminalRow(jet::Recordset& row, TerminalRecord& slot)
{
    ForEachColumn(slot, TakenFrom(row));
}

void StoreTerminalRow(jet::Recordset& row, const TerminalRecord& slot)
{
    row.Edit();
    try {
        ForEachColumn(slot, SetIn(row));
        row.Update();
    } catch (const jet::Error&) {
        row.CancelUpdate();
        throw;
    }
}

}  // namespace orlo
