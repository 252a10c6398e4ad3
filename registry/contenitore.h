#pragma once

#include "link/workstation.h"
#include "registry/program_state.h"
#include "registry/terminal_type.h"

#include <QSet>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAbstractButton;
class QLineEdit;
class QTimer;

namespace Ui
{
class Contenitore;
}

namespace orlo
{

class TerminalForm;

/// Why nothing is done for a terminal whose type is none.
inline const QString kUnknownType = QStringLiteral("il tipo di terminale non è conosciuto");
inline const QString kUnknownTypeError = QStringLiteral("Errore: %1.").arg(kUnknownType);

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
    /// The controls by their names, for the procedures of the features. Needs
    /// "registry/contenitore_controls.h".
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

    /// The number that the selected line begins with, 0 when none is selected.
    int SelectedTerminal() const;

    void RipulisceParametri();
    /// Empties the status panels: outcome, counters, terminal status and version, clock displays.
    void AzzeraLabel();

    /// Copies the selected terminal from the controls into the current-terminal block. For an Orlo
    /// or a Sipa it also closes the component's line if it is open, opens it anew, and dials when
    /// the terminal is reached by modem; the line stays open behind the command. False when the
    /// component is missing or failed, or the operator ended the call, which the caption then says:
    /// nothing is to be asked.
    bool PrepareCurrentTerminal();

    /// Makes the modem behind the component's line hang up, when the current terminal is reached by
    /// one. False when the component failed, which the caption then says.
    bool PulseModemLine();

    /// Behind a command: the modem of an Orlo hangs up, as the line costs money; that of a Sipa is
    /// not pulsed. False like PulseModemLine.
    bool HangUpBehindCommand();

    /// Behind a command of the badge layout or of the bells: DTR falls and rises on the line of an
    /// Orlo, modem or not; that of a Sipa stays. The caption says when the component failed.
    void ResetLineBehindCommand();

    /// Says above the clock displays which terminal's clock they show; 0 = they are empty. It
    /// stands out while another terminal is selected.
    void NameClockTerminal(int terminal);

    /// The model named in ComboTipoTerminale, nullptr when the text is no model's name.
    const TerminalModel* ShownModel() const;

    /// Whether the light `Verde` shows an open line, also while the window itself is not shown.
    bool LineIsOpen() const;

    /// Whether the feature behind a command button is there. A button without one stays disabled.
    void SetFeatureAvailable(QAbstractButton* button, bool available);

    /// Runs one command of the window: everything else is inert until it returns, a close asked for
    /// meanwhile follows it. `task` is shown in the title row ("Acquisizione in corso…"). Does
    /// nothing while another command runs.
    void RunCommand(QAbstractButton* button, const QString& task, EscapeUse escape,
                    const std::function<void()>& command);
    bool CommandRunning() const { return running_; }
    /// The running command has done its work: the title row no longer names it, the strip no longer
    /// offers to stop it. For the box that says how it ended.
    void ShowWorkDone();
    /// Whether the program is to end behind the running command.
    bool LeaveAsked() const { return leave_after_command_; }

    /// Says in a line of its own how the running command ended, with its name, terminal and time:
    /// captions are written over by what follows. Without it that is the command's last caption.
    void NoteOutcome(const QString& outcome)
    {
        if (running_) noted_outcome_ = outcome;
    }

    /// What is done every second (Timer1), but not while the window is hidden, a command runs or
    /// another window waits for the operator. It lets no window events in.
    void SetPeriodicRead(std::function<void()> read) { periodic_read_ = std::move(read); }

    /// Says in the line of the last command by which error the start-up was not completed.
    void ShowStartUpFailure(int error);

    /// A standing remark in the strip, such as why the register was not read to its end.
    void ShowRemark(const QString& text);

signals:
    /// The operator wants to leave (cmdUscita, the window's close button, the end of the session)
    /// and no command runs. The window does not close by itself: whoever hears this ends the
    /// program, and may close the window while hearing it.
    void LeaveRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class CommandScope;

    void AskToLeave();
    void HearOutcome(const QString& caption);
    void ShowLastOutcome(int terminal);
    void RefreshStrip();
    void StartTimer1();
    void Timer1_Timer();
    bool PrepareComponent(const TerminalModel& model);
    void ConnectControls();
    void ConnectPanels();

    // What the operator does.
    void ListaTerminali_Click();
    void ComboTipoTerminale_Click();
    void ComboTipoTerminale_LostFocus();
    void Abilitazione_Click();
    void CheckModem_Click();
    void cmdAggiorna_Click();
    void cmdSfoglia_Click();

    // The selected terminal.
    TerminalRecord* SelectedSlot();
    void TrimTexts(TerminalRecord& slot);
    void EnableByActivity(bool active);
    void EnableObjectLinkControls(bool enabled);
    void ShowWhetherModified();
    /// Whether the terminal's row was written.
    bool SaveSelected(const TerminalRecord& entered);
    /// Tells which field it is; false, as nothing is saved.
    bool Refuse(const QLineEdit& misfit);
    void EmptyTerminalPanels();
    void EmptyClockDisplays();

    // Look and state of the window.
    void DeriveLook();
    void RefreshAvailability();
    void RefreshNotice();
    void RefreshGauge();
    void RefreshBadge();
    void RefreshClockDifference();
    void RefreshClockTerminal();

    ProgramState& state_;
    Workstation& workstation_;
    std::unique_ptr<Ui::Contenitore> ui_;
    TerminalForm* form_ = nullptr;

    std::vector<QAbstractButton*> commands_;
    QSet<const QAbstractButton*> unavailable_;
    /// What the controls held when the selected terminal was shown.
    std::optional<TerminalRecord> shown_;
    bool may_save_ = false;
    bool running_ = false;
    bool leave_after_command_ = false;
    bool leaving_ = false;
    QString task_;
    QString heard_outcome_;
    QString noted_outcome_;
    QTimer* timer1_ = nullptr;
    std::function<void()> periodic_read_;
    int clock_terminal_ = 0;
};

}  // namespace orlo
