#include "registry/list_line.h"

#include "registry/field_value.h"
#include "registry/terminal_type.h"
#include "registry/text_blanks.h"

namespace orlo
{

namespace
{

QString NumberText(int n)
{
    if (n < 10) return u'0' + QString::number(n);
    return n < 100 ? QString::number(n) : QString();
}

// The trailing blanks of two of these texts line the columns up.
QString FunctionText(int function)
{
    switch (function) {
        case 1:
            return QStringLiteral("\t - Abilitazione");
        case 2:
            return QStringLiteral("\t - Esonero PIN ");
        case 3:
            return QStringLiteral("\t - Funz.Allarme");
        default:
            return QStringLiteral("\t\t\t") + QString(15, u' ');
    }
}

QString ActiveText(int active)
{
    if (active == kTrue) return QStringLiteral("\tSì");
    return active == kFalse ? QStringLiteral("\tNo") : QString();
}

QString ModeText(int mode)
{
    switch (mode) {
        case 1:
            return QStringLiteral("\tPresenze");
        case 2:
            return QStringLiteral("\tPres/Acc");
        case 3:
            return QStringLiteral("\tAccessi ");
        default:
            return {};
    }
}

QString RowDescription(ProgramState& state, const TerminalRecord& slot)
{
    jet::Recordset* cursor = state.TerminalsRecordset.get();
    if (cursor == nullptr || cursor->NoMatch() || cursor->AtBof() || cursor->AtEof())
        return slot.Descrizione.trimmed();
    return TextField(*cursor, u"Descrizione").value_or(QString());
}

}  // namespace

QString ListLine(int n, const TerminalRecord& slot, const QString& description)
{
    QString line = NumberText(n);
    if (n < 1 || n > kTerminalSlots) return line;
    if (const TerminalModel* model = ModelByCode(slot.Tipo))
        line += QStringLiteral(" - ") + model->name;
    line += QStringLiteral(" - ");
    // The slot's description is padded with blanks: nothing but blanks is an empty one.
    line += WithoutBlanksAround(slot.Descrizione).isEmpty() ? QString(kDescriptionWidth, u' ')
                                                            : description;
    return line + FunctionText(slot.Funzionamento) + ActiveText(slot.Attivo) +
           ModeText(slot.Modalita);
}

QString CostruzioneStringa(ProgramState& state, int n)
{
    if (n < 1 || n > kTerminalSlots) return ListLine(n, {}, {});
    const TerminalRecord& slot = state.TerminalTable[static_cast<std::size_t>(n - 1)];
    return ListLine(n, slot, RowDescription(state, slot));
}

}  // namespace orlo
