#include "app/bell_demonstration.h"

#include "app/demonstrated_window.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/terminal_lines.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>

#include <array>

namespace orlo
{

namespace
{

struct Bell {
    const char* time;
    int duration;
    bool saturday;
};

/// A working day.
constexpr std::array<Bell, 9> kDay = {{{"07:55", 5, true},
                                       {"08:00", 3, true},
                                       {"09:50", 2, false},
                                       {"10:05", 2, false},
                                       {"12:00", 5, true},
                                       {"12:55", 3, false},
                                       {"13:00", 3, false},
                                       {"15:10", 2, false},
                                       {"17:00", 8, false}}};
constexpr int kSaturday = 6;

void EnterWeek(const DemonstratedWindow& bells)
{
    for (int day = 1; day <= kSaturday; ++day) {
        bells.Press(QStringLiteral("Giorno_%1").arg(day));
        int ring = 0;
        for (const Bell& bell : kDay) {
            if (day == kSaturday && !bell.saturday) continue;
            bells.Enter(QStringLiteral("Ring_%1").arg(ring), QLatin1String(bell.time));
            bells.Enter(QStringLiteral("TempoRings_%1").arg(ring), QString::number(bell.duration));
            ++ring;
        }
    }
}

void EnterTable(const DemonstratedWindow& bells)
{
    auto& list = bells.Find<QListWidget>("ListaSuonerie");
    int line = 0;
    for (const Bell& bell : kDay) {
        list.setCurrentRow(line++);
        bells.Enter("Ring", QLatin1String(bell.time));
        bells.Enter("TempoRings", QString::number(bell.duration));
        bells.Press(bell.duration == 2 ? "RelèB" : "RelèA");
        for (const char* day : {"Lunedi", "Martedi", "Mercoledi", "Giovedi", "Venerdi"})
            bells.Find<QAbstractButton>(day).setChecked(true);
        bells.Find<QAbstractButton>("Sabato").setChecked(bell.saturday);
        bells.Press("cmdAggiorna");
    }
    constexpr int kNoon = 4;
    list.setCurrentRow(kNoon);
}

bool ShowObjectBells(Desk& desk, int terminal, const QString& suffix,
                     const PictureTaker& take_picture)
{
    if (!SelectTerminal(desk.Window(), terminal)) return false;
    const DemonstratedWindow bells(desk.Window(), desk.Window().Controls().cmdSuonerie,
                                   "FrmSuonerie");
    EnterWeek(bells);
    bells.Press("cmdTrasmetteSuonerie");
    bells.Press("cmdRiceveSuonerie");
    bells.Press("Giorno_2");
    bells.Find<QLineEdit>("Ring_2").setFocus();
    take_picture(bells.Window(), QStringLiteral("FrmSuonerie-") + suffix);
    return bells.Text("Esito") == kCommunicationOk;
}

bool ShowSerialBells(Desk& desk, int terminal, const QString& suffix,
                     const PictureTaker& take_picture)
{
    if (!SelectTerminal(desk.Window(), terminal)) return false;
    const DemonstratedWindow bells(desk.Window(), desk.Window().Controls().cmdSuonerie,
                                   "frmRingOrloII");
    EnterTable(bells);
    bells.Press("cmdTrasmette");
    take_picture(bells.Window(), QStringLiteral("frmRingOrloII-") + suffix);
    return bells.Text("PannelloSuonerie") == kCommunicationOk;
}

}  // namespace

bool ShowBells(Desk& desk, int object_terminal, int serial_terminal, const QString& suffix,
               const PictureTaker& take_picture)
{
    const bool object = ShowObjectBells(desk, object_terminal, suffix, take_picture);
    return ShowSerialBells(desk, serial_terminal, suffix, take_picture) && object;
}

}  // namespace orlo
