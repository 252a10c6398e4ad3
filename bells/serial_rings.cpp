#include "bells/serial_rings.h"

#include "bells/ring_line.h"
#include "bells/ring_telegram.h"
#include "link/exchange.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"

namespace orlo
{

namespace
{

struct Exchanged {
    QString status;
    bool good_frame = false;
};

/// One telegram with a port of its own.
Exchanged Exchange(Contenitore& window, std::string_view command)
{
    const PortSession session(window);
    // Why an open line cannot be used is in the caption by now.
    if (session.Port() == nullptr)
        return {window.LineIsOpen() ? window.Controls().PannelloComunicazione->text()
                                    : kPortNotOpened};
    const std::string answer = ExchangeTelegram(window.Station(), *session.Port(),
                                                window.State().CurrentTerminalNumber, command);
    const bool good_frame = IsAnswer(answer);
    if (!good_frame) LetLineRunOut(window.Station(), *session.Port());
    return {answer == kTimeout ? kTimeoutCaption : kCommunicationOk, good_frame};
}

/// Lets the screen be without the outcome of the command before: a silent terminal leaves the
/// window without a turn for seconds.
TextPanel& EmptyCaption(Contenitore& window)
{
    TextPanel& caption = *window.Controls().PannelloComunicazione;
    caption.clear();
    window.Station().clock.ProcessPendingEvents();
    return caption;
}

/// The sending ends at that line of the list, counted from 0: those before it are in the terminal.
/// It is not told where none was asked for anything.
BellOutcome Ended(TextPanel& caption, const QString& status, qsizetype line, int sent)
{
    caption.setText(status);
    if (sent == 0 && status != kTimeoutCaption) return {status, {}};
    return {status, QStringLiteral("riga %1 di %2").arg(line + 1).arg(kRingPositions)};
}

/// How many answers came in a good frame nobody asks; the operator is told it.
BellOutcome Finished(int sent, int good)
{
    if (sent == 0) return {kCommunicationOk, QStringLiteral("nessuna suoneria da inviare")};
    return {kCommunicationOk,
            good == sent ? QString() : QStringLiteral("risposte %1 su %2").arg(good).arg(sent)};
}

}  // namespace

BellOutcome SendRings(Contenitore& window, BellTelegram form, const QStringList& lines)
{
    TextPanel& caption = EmptyCaption(window);
    int sent = 0;
    int good = 0;
    for (qsizetype line = 0; line < lines.size(); ++line) {
        const std::optional<std::string> telegram = RingTelegram(form, lines[line]);
        if (!telegram) continue;
        if (window.LeaveAsked())
            return Ended(caption, QStringLiteral("Invio interrotto."), line, sent);
        const Exchanged exchanged = Exchange(window, *telegram);
        if (exchanged.status != kCommunicationOk)
            return Ended(caption, exchanged.status, line, sent);
        ++sent;
        good += exchanged.good_frame ? 1 : 0;
        caption.setText(QStringLiteral("%1/%2 ").arg(line + 1).arg(kRingPositions) +
                        kCommunicationOk);
        window.Station().clock.ProcessPendingEvents();
    }
    return Finished(sent, good);
}

BellOutcome ClearRings(Contenitore& window)
{
    TextPanel& caption = EmptyCaption(window);
    const Exchanged exchanged = Exchange(window, kClearRings);
    caption.setText(exchanged.status);
    if (exchanged.status != kCommunicationOk) return {exchanged.status, {}};
    return Finished(/*sent=*/1, exchanged.good_frame ? 1 : 0);
}

}  // namespace orlo
