#include "app/bell_demonstration.h"

#include "registry/contenitore_controls.h"
#include "registry/terminal_lines.h"

#include <QAbstractButton>
#include <QDialog>
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

/// A bell window with its controls by their names.
class BellControls
{
public:
    BellControls(Desk& desk, int terminal, const char* window)
    {
        if (!SelectTerminal(desk.Window(), terminal)) return;
        desk.Window().Controls().cmdSuonerie->click();
        window_ = desk.Window().findChild<QDialog*>(QLatin1String(window));
    }

    bool IsOpen() const { return window_ != nullptr; }
    QDialog& Window() const { return *window_; }
    void Close() const { window_->close(); }
    void Press(const QString& button) const
    {
        window_->findChild<QAbstractButton*>(button)->click();
    }
    /// As typed over what the field holds.
    void Enter(const QString& field, const QString& text) const
    {
        auto* const edit = window_->findChild<QLineEdit*>(field);
        edit->setFocus();
        edit->selectAll();
        edit->insert(text);
    }
    QString Text(const QString& label) const { return window_->findChild<QLabel*>(label)->text(); }

private:
    QDialog* window_ = nullptr;
};

void EnterWeek(const BellControls& bells)
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

void EnterTable(const BellControls& bells)
{
    auto* const list = bells.Window().findChild<QListWidget*>(QStringLiteral("ListaSuonerie"));
    int line = 0;
    for (const Bell& bell : kDay) {
        list->setCurrentRow(line++);
        bells.Enter(QStringLiteral("Ring"), QLatin1String(bell.time));
        bells.Enter(QStringLiteral("TempoRings"), QString::number(bell.duration));
        bells.Press(bell.duration == 2 ? QStringLiteral("RelèB") : QStringLiteral("RelèA"));
        for (const char* day : {"Lunedi", "Martedi", "Mercoledi", "Giovedi", "Venerdi", "Sabato"}) {
            auto* const box = bells.Window().findChild<QAbstractButton*>(QLatin1String(day));
            box->setChecked(bell.saturday || QLatin1String(day) != QLatin1String("Sabato"));
        }
        bells.Press(QStringLiteral("cmdAggiorna"));
    }
    constexpr int kNoon = 4;
    list->setCurrentRow(kNoon);
}

bool ShowObjectBells(Desk& desk, int terminal, const QString& suffix,
                     const PictureTaker& take_picture)
{
    const BellControls bells(desk, terminal, "FrmSuonerie");
    if (!bells.IsOpen()) return false;
    EnterWeek(bells);
    bells.Press(QStringLiteral("cmdTrasmetteSuonerie"));
    bells.Press(QStringLiteral("cmdRiceveSuonerie"));
    bells.Press(QStringLiteral("Giorno_2"));
    bells.Window().findChild<QLineEdit*>(QStringLiteral("Ring_2"))->setFocus();
    take_picture(bells.Window(), QStringLiteral("FrmSuonerie-") + suffix);
    const bool done = bells.Text(QStringLiteral("Esito")) == QStringLiteral("Comunicazione OK");
    bells.Close();
    return done;
}

bool ShowSerialBells(Desk& desk, int terminal, const QString& suffix,
                     const PictureTaker& take_picture)
{
    const BellControls bells(desk, terminal, "frmRingOrloII");
    if (!bells.IsOpen()) return false;
    EnterTable(bells);
    bells.Press(QStringLiteral("cmdTrasmette"));
    take_picture(bells.Window(), QStringLiteral("frmRingOrloII-") + suffix);
    const bool done =
        bells.Text(QStringLiteral("PannelloSuonerie")) == QStringLiteral("Comunicazione OK");
    bells.Close();
    return done;
}

}  // namespace

bool ShowBells(Desk& desk, int object_terminal, int serial_terminal, const QString& suffix,
               const PictureTaker& take_picture)
{
    const bool object = ShowObjectBells(desk, object_terminal, suffix, take_picture);
    return ShowSerialBells(desk, serial_terminal, suffix, take_picture) && object;
}

}  // namespace orlo
