#include "badge/serial_formato_badge.h"

#include "badge/badge_fields.h"
#include "badge/badge_values.h"
#include "link/exchange.h"
#include "link/telegram.h"
#include "registry/contenitore_controls.h"
#include "registry/numeric_value.h"
#include "registry/port_session.h"
#include "registry/text_blanks.h"
#include "registry/windows_1252.h"

#include <algorithm>

namespace orlo
{

namespace
{

constexpr int kReadWidth = 3;
constexpr int kSentWidth = 2;

/// The telegrams of one command on the open port, and how many of them were answered in a good
/// frame. Nobody asks for that; the operator is told it beside.
class Telegrams
{
public:
    Telegrams(Contenitore& window, SerialPortControl& port) : window_(window), port_(port) {}

    std::string Exchange(std::string_view command)
    {
        return Count(ExchangeTelegram(window_.Station(), port_,
                                      window_.State().CurrentTerminalNumber, command));
    }
    std::string ExchangeWithLongWait(std::string_view command)
    {
        return Count(ExchangeTelegramTicks(window_.Station(), port_,
                                           window_.State().CurrentTerminalNumber, command));
    }
    QString Outcome() const { return QStringLiteral("risposte %1 su %2").arg(good_).arg(sent_); }

private:
    std::string Count(std::string answer)
    {
        ++sent_;
        if (IsAnswer(answer))
            ++good_;
        else
            LetLineRunOut(window_.Station(), port_);
        window_.Station().clock.ProcessPendingEvents();
        return answer;
    }

    Contenitore& window_;
    SerialPortControl& port_;
    int sent_ = 0;
    int good_ = 0;
};

QLineEdit& Control(const Contenitore& window, LayoutField field)
{
    const Ui::Contenitore& controls = window.Controls();
    switch (field) {
        case LayoutField::InizioImpianto:
            return *controls.InizioImpianto;
        case LayoutField::LenImpianto:
            return *controls.LenImpianto;
        case LayoutField::InizioBadge:
            return *controls.InizioBadge;
        case LayoutField::LenBadge:
            return *controls.LenBadge;
        case LayoutField::NomeCard:
            break;
    }
    return *controls.NomeCard;
}

/// The plant code is as wide as it is long in the badge; nothing is wide enough for a length below
/// zero.
int WidthOf(const Contenitore& window, LayoutField field, int width_of_numbers)
{
    if (field != LayoutField::NomeCard) return width_of_numbers;
    const int length = WholeNumberOrZero<int>(window.Controls().LenImpianto->text());
    return std::max(0, length);
}

bool IsZero(const QLineEdit& field)
{
    return NumericValue(field.text()) == 0;
}

/// What is wrong with a value, behind the name of its field; empty when nothing is.
QString FaultOf(const QString& value, int width)
{
    if (NumericValue(value) < 0) return QStringLiteral("è minore di zero");
    if (value.size() > width)
        return QStringLiteral("ha più cifre di quante ne prende il terminale (%1)").arg(width);
    // A CR, which another program may have put into the register, would end the telegram; what
    // Windows-1252 lacks would become a "?" that nobody typed.
    if (std::any_of(value.begin(), value.end(), [](QChar c) { return c < u' '; }) ||
        !FirstOutsideWindows1252(value).isEmpty())
        return QStringLiteral("contiene caratteri che non si possono inviare");
    return {};
}

/// Why the layout cannot be sent, empty when it can.
QString Objection(const Contenitore& window)
{
    const Ui::Contenitore& controls = window.Controls();
    // The plant code may start at 0, and is not asked for it.
    if (IsZero(*controls.NomeCard) || IsZero(*controls.LenImpianto))
        return QStringLiteral("Mancano dei dati necessari riguardanti il codice azienda.");
    if (IsZero(*controls.InizioBadge) || IsZero(*controls.LenBadge))
        return QStringLiteral("Mancano dei dati necessari riguardanti il numero badge.");
    for (const LayoutField field : kLayoutFields) {
        const QString fault = FaultOf(WithoutBlanksAround(Control(window, field).text()),
                                      WidthOf(window, field, kSentWidth));
        if (!fault.isEmpty())
            return QStringLiteral("Il campo «%1» %2: il formato badge non è stato inviato.")
                .arg(Control(window, field).accessibleName(), fault);
    }
    return {};
}

/// As it was typed, not as a number.
std::string ValueToSend(const Contenitore& window, LayoutField field)
{
    const QByteArray typed = ToWindows1252(WithoutBlanksAround(Control(window, field).text()));
    return ZeroFilled(typed.toStdString(),
                      static_cast<std::size_t>(WidthOf(window, field, kSentWidth)));
}

}  // namespace

void ReadSerialBadgeFormat(Contenitore& window, const TerminalModel& model)
{
    const PortSession session(window);
    if (session.Port() == nullptr) {
        window.NoteOutcome(session.Refusal());
        return;
    }
    Telegrams telegrams(window, *session.Port());
    QString not_shown;
    for (const LayoutField field : kLayoutFields) {
        // A silent terminal would hold up the end of the program for twenty seconds.
        if (window.LeaveAsked()) break;
        const std::string answer =
            telegrams.Exchange(ReadFieldCommand(model.first_badge_parameter, field));
        const auto characters = static_cast<std::size_t>(WidthOf(window, field, kReadWidth));
        const QString number = QString::fromStdString(NumberAtEnd(answer, characters));
        QLineEdit& control = Control(window, field);
        // A field that would cut the number shows none: a cut code is another company's.
        const bool fits = number.size() <= control.maxLength();
        control.setText(fits ? number : QStringLiteral("0"));
        if (!fits)
            not_shown =
                QStringLiteral("%1 troppo lungo: %2; ").arg(control.accessibleName(), number);
    }
    window.NoteOutcome(not_shown + telegrams.Outcome());
}

void SendSerialBadgeFormat(Contenitore& window, const TerminalModel& model)
{
    if (const QString objection = Objection(window); !objection.isEmpty()) {
        window.Station().dialog.Tell(DialogIcon::None, QStringLiteral("Orlo Desk"), objection);
        window.NoteOutcome(objection);
        return;
    }
    const PortSession session(window);
    if (session.Port() == nullptr) {
        window.NoteOutcome(session.Refusal());
        return;
    }
    Telegrams telegrams(window, *session.Port());
    for (const LayoutField field : kLayoutFields) {
        // Half a layout is not stored.
        if (window.LeaveAsked()) return;
        telegrams.Exchange(
            WriteFieldCommand(model.first_badge_parameter, field, ValueToSend(window, field)));
    }
    if (model.store_wait == StoreWait::Long)
        telegrams.ExchangeWithLongWait("97STORE");
    else
        telegrams.Exchange("97STORE");
    window.NoteOutcome(telegrams.Outcome());
}

}  // namespace orlo
