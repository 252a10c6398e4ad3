#include "registry/port_session.h"

#include "link/serial_port_link.h"
#include "registry/captions.h"
#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/held_line.h"

namespace orlo
{

PortSession::PortSession(Contenitore& window) : window_(window)
{
    ProgramState& state = window.State();
    if (window.LineIsOpen()) {
        port_ = HeldLine(window);
        state.SerialPortOk = port_ != nullptr;
        return;
    }
    SerialPortControl* const port = window.Station().Comm(state.CurrentPort);
    // A port number outside 1..4 selects no control and gives no message.
    if (port == nullptr) {
        state.SerialPortOk = false;
        return;
    }
    opened_here_ = OpenSerialPort(*port, state.CurrentPort, SettingsText(state.CurrentSpeed));
    state.SerialPortOk = opened_here_;
    if (opened_here_)
        port_ = port;
    else
        window.Controls().PannelloComunicazione->setText(kPortNotOpened);
}

PortSession::~PortSession()
{
    if (opened_here_) window_.State().SerialPortOk = CloseSerialPort(*port_);
}

QString PortSession::Refusal() const
{
    const QString caption = window_.Controls().PannelloComunicazione->text();
    return caption.isEmpty() ? kNoPort : caption;
}

}  // namespace orlo
