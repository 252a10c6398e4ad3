#include "bells/object_rings.h"

#include "bells/week_days.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/wait_terminal_delay.h"

#include <cmath>
#include <utility>

namespace orlo
{

namespace
{

const QString kTitle = QStringLiteral("Comunicazione");

component::Rings& Rings(Contenitore& window)
{
    return *window.State().Component->RingsObject;
}

/// The percentage of the main window while rings travel: it rises, and is back at 0 at the end.
class RingProgress
{
public:
    explicit RingProgress(Contenitore& window)
        : window_(window), falling_(window.Controls().LabelPercentuale->text())
    {
        window_.Controls().PannelloTentativi->clear();
        window_.Controls().LabelPercentuale->setText(QStringLiteral("Completato:"));
        window_.Controls().PannelloPercentuale->setValue(0);
        // A silent terminal leaves the window without a turn for long.
        window_.Station().clock.ProcessPendingEvents();
    }
    ~RingProgress()
    {
        window_.Controls().PannelloPercentuale->setValue(0);
        window_.Controls().LabelPercentuale->setText(falling_);
    }
    RingProgress(const RingProgress&) = delete;
    RingProgress& operator=(const RingProgress&) = delete;

    void CountRing()
    {
        ++done_;
        window_.Controls().PannelloPercentuale->setValue(
            static_cast<int>(std::lround(100.0 * done_ / kRingSlots)));
        window_.Station().clock.ProcessPendingEvents();
    }
    int Done() const { return done_; }

private:
    Contenitore& window_;
    QString falling_;
    int done_ = 0;
};

/// Calls until it succeeds, as many times as the terminal has attempts, once at the least, but not
/// again when the program is to end. The delay of the terminal is waited for before each
/// repetition.
bool Attempt(Contenitore& window, const std::function<bool()>& call)
{
    const int limit = window.State().CurrentRetries;
    int attempt = 1;
    while (!call()) {
        if (attempt >= limit) return false;
        ++attempt;
        window.Controls().PannelloTentativi->setText(
            QStringLiteral("Tentativi%1/%2").arg(attempt).arg(limit));
        window.Station().clock.ProcessPendingEvents();
        if (window.LeaveAsked()) return false;
        WaitTerminalDelay(window.State(), window.Station());
    }
    return true;
}

void StoreDay(Contenitore& window, int day, RingProgress& progress)
{
    component::Rings& rings = Rings(window);
    for (std::int16_t ring = 1; ring <= kRingsOfDay; ++ring) {
        rings.RingIndex(ring);
        RingEntry& entry =
            RingOf(window.State().RingTable, window.State().CurrentTerminalNumber, day, ring);
        entry.Hour = rings.RingHour();
        entry.Minute = rings.RingMinute();
        entry.HowLong = rings.RingHowLong();
        progress.CountRing();
    }
}

void SelectRing(Contenitore& window, int day, int ring)
{
    component::Rings& rings = Rings(window);
    const RingEntry& entry =
        RingOf(window.State().RingTable, window.State().CurrentTerminalNumber, day, ring);
    rings.RingDay(static_cast<std::int16_t>(day));
    rings.RingIndex(static_cast<std::int16_t>(ring));
    rings.RingHour(entry.Hour);
    rings.RingMinute(entry.Minute);
    rings.RingHowLong(entry.HowLong);
}

bool SendRing(Contenitore& window)
{
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] =
        std::pair(window.State().CurrentTerminalNumber, window.State().CurrentPriority);
    return Rings(window).Send(terminal, priority);
}

QString WithCode(Contenitore& window, const QString& what)
{
    return QStringLiteral("%1: %2.").arg(what, ComponentText(Rings(window).ReceivedCommand()));
}

/// The empty text when all seven days were read, else what was not and why.
QString ReadWeek(Contenitore& window, RingProgress& progress)
{
    WaitTerminalDelay(window.State(), window.Station());
    for (int day = 0; day < kRingDays; ++day) {
        if (!Attempt(window, [&] { return GetRings(window, day); }))
            return WithCode(
                window, QStringLiteral("Da %1 in poi non è stato letto niente").arg(WeekDay(day)));
        StoreDay(window, day, progress);
    }
    return {};
}

QString SendWeek(Contenitore& window, RingProgress& progress)
{
    WaitTerminalDelay(window.State(), window.Station());
    for (int day = 0; day < kRingDays; ++day)
        for (int ring = 1; ring <= kRingsOfDay; ++ring) {
            SelectRing(window, day, ring);
            if (!Attempt(window, [&] { return SendRing(window); }))
                return WithCode(window,
                                QStringLiteral("La suoneria %1 di %2 non è confermata; da "
                                               "quella dopo in poi il terminale ha ancora le "
                                               "suonerie di prima")
                                    .arg(ring)
                                    .arg(WeekDay(day)));
            progress.CountRing();
        }
    return {};
}

using Transfer = QString (*)(Contenitore&, RingProgress&);

/// Runs a transfer and tells how it ended.
bool TellTransfer(Contenitore& window, Transfer transfer, const RingsEnded& ended,
                  const QString& good, const QString& bad)
{
    RingProgress progress(window);
    QString failure;
    const QString thrown =
        GuardComponentCalls(window, [&] { failure = transfer(window, progress); });
    if (!thrown.isEmpty()) failure = thrown;
    const bool done = failure.isEmpty();
    window.NoteOutcome(done ? good : bad);
    window.ShowWorkDone();
    ended(progress.Done());
    window.Station().dialog.Tell(done ? DialogIcon::Information : DialogIcon::Critical, kTitle,
                                 done ? good : bad, failure);
    return done;
}

}  // namespace

bool GetRings(Contenitore& window, int day)
{
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] =
        std::pair(window.State().CurrentTerminalNumber, window.State().CurrentPriority);
    auto asked = static_cast<std::int16_t>(day);
    return Rings(window).Receive(terminal, priority, asked);
}

bool LeggeSuonerie(Contenitore& window, const std::function<void()>& cleared,
                   const RingsEnded& ended)
{
    window.State().RingTable = {};
    cleared();
    return TellTransfer(window, ReadWeek, ended, QStringLiteral("Ricezione dati OK"),
                        QStringLiteral("Errore nella ricezione dei dati"));
}

bool TrasmetteSuonerie(Contenitore& window, const RingsEnded& ended)
{
    return TellTransfer(window, SendWeek, ended, QStringLiteral("Spedizione dati OK"),
                        QStringLiteral("Errore nella spedizione dei dati"));
}

}  // namespace orlo
