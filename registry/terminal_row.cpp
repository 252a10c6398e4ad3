#include "registry/terminal_row.h"

#include "registry/field_value.h"

#include <algorithm>
#include <array>

namespace orlo
{

namespace
{

/// Columns that databases of earlier years lack.
constexpr std::array<std::u16string_view, 16> kLaterColumns = {u"Ritardo",
                                                               u"NomeCard",
                                                               u"LenCard",
                                                               u"Bidirezionale",
                                                               u"InizioImpianto",
                                                               u"LenImpianto",
                                                               u"InizioAzienda",
                                                               u"LenAzienda",
                                                               u"InizioBadge",
                                                               u"LenBadge",
                                                               u"Tentativi",
                                                               u"Impianto",
                                                               u"Abilitazione_Modem",
                                                               u"TIPO",
                                                               u"Modem",
                                                               u"Priorita_Secondaria"};

bool IsLaterColumn(std::u16string_view column)
{
    return std::find(kLaterColumns.begin(), kLaterColumns.end(), column) != kLaterColumns.end();
}

/// One row as the slot wants it: a column of later years that the table lacks reads as Null.
class TerminalRow
{
public:
    explicit TerminalRow(jet::Recordset& row) : row_(row) {}

    template <typename Integer>
    void Into(Integer& field, std::u16string_view column)
    {
        Load(column, [&] {
            if (const auto value = IntegerField<Integer>(row_, column)) field = *value;
        });
    }

    void Into(float& field, std::u16string_view column)
    {
        Load(column, [&] {
            if (const auto value = SingleField(row_, column)) field = *value;
        });
    }

    /// Texts are padded with blanks, or cut, to the width of their field.
    void Into(QString& field, std::u16string_view column, int width)
    {
        Load(column, [&] {
            if (const auto value = TextField(row_, column))
                field = value->left(width).leftJustified(width);
        });
    }

private:
    template <typename Loading>
    void Load(std::u16string_view column, Loading loading)
    {
        try {
            loading();
        } catch (const jet::Error& error) {
            if (error.Number() != jet::kColumnNotFound || !IsLaterColumn(column)) throw;
        }
    }

    jet::Recordset& row_;
};

}  // namespace

void LoadTerminalRow(jet::Recordset& row, TerminalRecord& slot)
{
    TerminalRow values(row);
    values.Into(slot.Tipo, u"TIPO");
    values.Into(slot.Funzionamento, u"Funzionamento");
    values.Into(slot.Descrizione, u"Descrizione", kDescriptionWidth);
    values.Into(slot.Attivo, u"Attivo");
    values.Into(slot.Modalita, u"Modalita");
    values.Into(slot.Porta, u"Porta");
    values.Into(slot.Priorita, u"Priorita");
    values.Into(slot.PrioritaSecondaria, u"Priorita_Secondaria");
    values.Into(slot.Velocita, u"Velocita");
    values.Into(slot.Modem, u"Modem", kPhoneWidth);
    values.Into(slot.AbilitazioneModem, u"Abilitazione_Modem");
    values.Into(slot.Impianto, u"Impianto");
    values.Into(slot.Tentativi, u"Tentativi");
    values.Into(slot.Ritardo, u"Ritardo");
    values.Into(slot.NomeCard, u"NomeCard", kCardNameWidth);
    values.Into(slot.LenCard, u"LenCard");
    values.Into(slot.Bidirezionale, u"Bidirezionale");
    values.Into(slot.InizioImpianto, u"InizioImpianto");
    values.Into(slot.InizioAzienda, u"InizioAzienda");
    values.Into(slot.InizioBadge, u"InizioBadge");
    values.Into(slot.LenImpianto, u"LenImpianto");
    values.Into(slot.LenAzienda, u"LenAzienda");
    values.Into(slot.LenBadge, u"LenBadge");
}

}  // namespace orlo
