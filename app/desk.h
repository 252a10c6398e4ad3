#pragma once

#include "app/command_line.h"
#include "app/escape_key_watcher.h"
#include "link/component_objects.h"
#include "link/system_clock.h"
#include "link/workstation.h"
#include "registry/contenitore.h"

#include <functional>

class QPushButton;

namespace orlo
{

/// The program put together: the PC's parts, the state, the main window with its buttons wired to
/// the features. The window is not shown here.
class Desk
{
public:
    Desk(const CommandLine& command_line, OperatorDialog& dialog, LineTrace& trace);

    Contenitore& Window() { return window_; }
    ProgramState& State() { return state_; }
    /// Loads the protocol component of the command line, over the command line's devices.
    ComponentFactory Component() const;

    /// Ends the line that is open, if one is, with the window inert meanwhile: some ten seconds.
    void HangUp();

private:
    void WireCommands();
    /// `task` is what the title row says meanwhile.
    void Wire(QPushButton* button, const QString& task, EscapeUse escape,
              const std::function<void()>& command);
    /// A button that opens a window, whose own commands run one by one.
    void WireWindow(QPushButton* button, void (*open)(Contenitore& window));

    PortDevices devices_;
    QString component_file_;
    SystemClock clock_;
    EscapeKeyWatcher escape_;
    std::array<QtSerialPort, 4> ports_;
    Workstation workstation_;
    ProgramState state_;
    Contenitore window_;
};

}  // namespace orlo
