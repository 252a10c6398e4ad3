#include "registry/modem_session.h"

#include "link/modem_dial.h"
#include "link/serial_port_link.h"
#include "link/waits.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/held_line.h"
#include "registry/terminal_form.h"
#include "registry/windows_1252.h"

#include <array>

namespace orlo
{

namespace
{

/// By dial result.
constexpr std::array<QLatin1String, 6> kCaptions = {kModemLogIn,
                                                    QLatin1String("Modem Line No Carrier"),
                                                    QLatin1String("Modem Line No Dial Tone"),
                                                    QLatin1String("Modem Line Busy"),
                                                    QLatin1String("Modem Init Error"),
                                                    QLatin1String("Modem Not Connected")};

/// A modem takes "+++" for data when there was no second of silence before it, and the clock is
/// read every second.
constexpr std::int16_t kEscapeGuardTenths = 10;

/// The port of the selected terminal as the window shows it.
int ShownPort(const Contenitore& window)
{
    return PortOf(window.Controls().ComboPorta->currentText());
}

DialResult DialNumber(Contenitore& window, SerialPortControl& port)
{
    ProgramState& state = window.State();
    const std::string number = ToWindows1252(state.CurrentPhoneNumber).toStdString();
    return ModemDial(window.Station(), port, state.LineReceiveBuffer, /*initialisation=*/{},
                     number);
}

QString CaptionOf(DialResult result, const SerialPortControl& port)
{
    const std::string refusal = result == kModemInitError ? port.LineError() : std::string();
    if (!refusal.empty()) return QStringLiteral("Errore: ") + QString::fromStdString(refusal);
    return kCaptions.at(static_cast<std::size_t>(result));
}

/// True, with the reason in PannelloComunicazione, for a terminal whose component opens the line
/// and dials at every command: a call placed here would be ended by nobody.
bool ConnectsByItself(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr || model->family == LinkFamily::Serial) return false;
    window.Controls().PannelloComunicazione->setText(
        QStringLiteral("Errore: %1 si collega da sé a ogni comando.").arg(model->name));
    return true;
}

void LogOff(Contenitore& window)
{
    ProgramState& state = window.State();
    const Ui::Contenitore& controls = window.Controls();
    // The arrow on purpose, though the command has just set the hourglass: log-off gives the
    // pointer back first of all, however long the hang-up takes.
    window.setCursor(Qt::ArrowCursor);
    const bool line_open = window.LineIsOpen();
    // The current terminal may have become one of another port since the log-in.
    SerialPortControl* const port =
        window.Station().Comm(line_open ? state.SessionPort : state.CurrentPort);
    // A line that was dialled costs money: the tick may be another terminal's.
    if (port != nullptr && (controls.CheckModem->isChecked() || state.SessionDialled)) {
        if (line_open) WaitTenths(window.Station(), kEscapeGuardTenths);
        ModemHangUp(window.Station(), *port);
    }
    if (line_open && port != nullptr)
        state.SerialPortOk = CloseSerialPort(*port) || !port->PortOpen();
    // Success of the last port operation, not an open port: also without a line, and true here
    // because closing succeeded.
    if (!state.SerialPortOk) return;
    controls.Verde->hide();
    controls.Rosso->show();
    state.SessionPort = 0;
    state.SessionDialled = false;
    controls.PannelloComunicazione->setText(kModemLogOff);
}

}  // namespace

void LogIn_Click(Contenitore& window)
{
    ProgramState& state = window.State();
    const Ui::Contenitore& controls = window.Controls();
    controls.PannelloComunicazione->clear();
    if (AnotherLineIsOpen(window, ShownPort(window))) return;
    if (ConnectsByItself(window)) return;
    // Closing the port is not enough: a modem that does not watch DTR would keep the call.
    if (state.SessionDialled) LogOff(window);
    controls.PannelloComunicazione->clear();
    controls.Verde->hide();
    controls.Rosso->hide();
    state.SessionPort = 0;
    state.SessionDialled = false;
    window.PrepareCurrentTerminal();

    SerialPortControl* const port = window.Station().Comm(state.CurrentPort);
    // A port number outside 1..4 selects no control and gives no caption.
    if (port == nullptr) {
        window.NoteOutcome(kNoPort);
        return;
    }
    state.SerialPortOk = OpenSerialPort(*port, state.CurrentPort, SettingsText(state.CurrentSpeed));
    if (!state.SerialPortOk) {
        controls.PannelloComunicazione->setText(kPortNotOpened);
        return;
    }
    const bool dials = controls.CheckModem->isChecked();
    const DialResult result = dials ? DialNumber(window, *port) : kConnect;
    controls.PannelloComunicazione->setText(CaptionOf(result, *port));
    controls.Verde->setVisible(result == kConnect);
    controls.Rosso->setVisible(result != kConnect);
    if (result == kConnect) {
        state.SessionPort = state.CurrentPort;
        state.SessionDialled = dials;
    } else {
        state.SerialPortOk = CloseSerialPort(*port);
    }
}

void LogOff_Click(Contenitore& window)
{
    const int shown = ShownPort(window);
    // An emptied field names no other port.
    if (shown != 0 && AnotherLineIsOpen(window, shown)) return;
    LogOff(window);
    ClosePortLeftOpen(window);
}

void EndSession(Contenitore& window)
{
    if (window.LineIsOpen()) LogOff(window);
}

}  // namespace orlo
