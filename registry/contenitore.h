#pragma once

#include "link/workstation.h"
#include "registry/program_state.h"
#include "registry/terminal_type.h"

#include <QWidget>

#include <functional>
#include <memory>

class QAbstractButton;

namespace Ui
{
class Contenitore;
}

namespace orlo
{

/// Whether a running command looks at the Escape key; if so the strip says "Esc interrompe".
enum class EscapeUse { Ignored, Heeded };

/// The main window: the register on the left, the selected terminal on the right, the outcome of
/// commands in the strip below. It knows the register and its own controls; the features bring
/// their procedures and are wired to the buttons by the application.
class Contenitore : public QWidget
{
    Q_OBJECT

public:
    Contenitore(ProgramState& state, Workstation& workstation, QWidget* parent = nullptr);
    ~Contenitore() override;

    ProgramState& State() { return state_; }
    Workstation& Station() { return workstation_; }
    /// The controls by their names, for the procedures of the features. Needs "ui_contenitore.h".
    const Ui::Contenitore& Controls() const { return *ui_; }

    // Choice lists of the start-up.
    void CaricaComboRitardo();
    void CaricaComboTipoTerminale();
    void CaricaComboPorta();
    void CaricaComboVelocita();

    /// Adds a line at the end of ListaTerminali.
    void AddTerminalLine(const QString& line);
    /// Selects a line by its position, with the effect of a click; nothing when there is no such
    /// line.
    void SelectTerminalLine(int position);

    void RipulisceParametri();
    /// Empties the status panels: outcome, counters, terminal status and version, clock displays.
    void AzzeraLabel();

    /// Copies the selected terminal from the controls into the current-terminal block.
    void PrepareCurrentTerminal();

    /// The model named in ComboTipoTerminale, nullptr when the text is no model's name.
    const TerminalModel* ShownModel() const;

    /// Runs one command of the window: everything else is inert until it returns, a close asked for
    /// meanwhile follows it. `task` is shown in the title row ("Acquisizione in corso…"). Does
    /// nothing while another command runs.
    void RunCommand(QAbstractButton* button, const QString& task, EscapeUse escape,
                    const std::function<void()>& command);
    bool CommandRunning() const;

    /// A standing remark in the strip, such as why the register was not read to its end.
    void ShowRemark(const QString& text);

signals:
    /// The operator wants to leave (cmdUscita, the window's close button, the end of the session)
    /// and no command runs.
    void LeaveRequested();

private:
    ProgramState& state_;
    Workstation& workstation_;
    std::unique_ptr<Ui::Contenitore> ui_;
};

}  // namespace orlo
