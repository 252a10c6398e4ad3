#include "app/desk.h"

#include "acquisition/acquisizione.h"
#include "acquisition/frm_monitor.h"
#include "badge/formato_badge.h"
#include "bells/cmd_suonerie.h"
#include "console/frm_comandi.h"
#include "link/component_library.h"
#include "registry/contenitore_controls.h"
#include "registry/modem_session.h"
#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "status/test.h"

#include <QFile>

#include <algorithm>

namespace orlo
{

namespace
{

const QString kLoggingOff = QStringLiteral("Scollegamento in corso…");

}  // namespace

Desk::Desk(const CommandLine& command_line, OperatorDialog& dialog, LineTrace& trace)
    : devices_(command_line.devices),
      component_file_(command_line.component_file),
      ports_{{{devices_, trace}, {devices_, trace}, {devices_, trace}, {devices_, trace}}},
      workstation_{
          clock_, dialog, escape_, trace, {&ports_[0], &ports_[1], &ports_[2], &ports_[3]}},
      window_(state_, workstation_)
{
    WireCommands();
}

ComponentFactory Desk::Component() const
{
    return [this] {
        std::array<std::string, 4> names;
        std::transform(devices_.begin(), devices_.end(), names.begin(), [](const QString& device) {
            return QFile::encodeName(device).toStdString();
        });
        return LoadComponent(QFile::encodeName(component_file_).toStdString(), names);
    };
}

void Desk::WireCommands()
{
    const Ui::Contenitore& controls = window_.Controls();
    Wire(controls.cmdAcquisisce, QStringLiteral("Acquisizione in corso…"), EscapeUse::Heeded,
         [this] { cmdAcquisisce_Click(window_); });
    Wire(controls.cmdTest, QStringLiteral("Test in corso…"), EscapeUse::Ignored,
         [this] { cmdTest_Click(window_); });
    Wire(controls.cmdLeggeOra, QStringLiteral("Lettura dell'ora in corso…"), EscapeUse::Ignored,
         [this] { cmdLeggeOra_Click(window_); });
    Wire(controls.cmdSincro, QStringLiteral("Sincronizzazione in corso…"), EscapeUse::Ignored,
         [this] { cmdSincro_Click(window_); });
    Wire(controls.cmdRiceveCard, QStringLiteral("Lettura badge in corso…"), EscapeUse::Ignored,
         [this] { cmdRiceveCard_Click(window_, [this] { LeggeDataOra(window_); }); });
    Wire(controls.cmdTrasmetteCard, QStringLiteral("Invio badge in corso…"), EscapeUse::Ignored,
         [this] { cmdTrasmetteCard_Click(window_); });
    Wire(controls.cmdLogIn, QStringLiteral("Collegamento in corso…"), EscapeUse::Heeded,
         [this] { LogIn_Click(window_); });
    Wire(controls.cmdLogOff, kLoggingOff, EscapeUse::Ignored, [this] { LogOff_Click(window_); });
    WireWindow(controls.cmdMonitorTimbrature, OpenTerminalWindow<FrmMonitor>);
    WireWindow(controls.cmdComandi, OpenTerminalWindow<FrmComandi>);
    WireWindow(controls.cmdSuonerie, cmdSuonerie_Click);
    window_.SetPeriodicRead([this] { Timer1_Timer(window_); });
}

void Desk::Wire(QPushButton* button, const QString& task, EscapeUse escape,
                const std::function<void()>& command)
{
    window_.SetFeatureAvailable(button, true);
    QObject::connect(button, &QPushButton::clicked, &window_,
                     [this, button, task, escape, command] {
                         window_.RunCommand(button, task, escape, command);
                     });
}

void Desk::WireWindow(QPushButton* button, void (*open)(Contenitore& window))
{
    window_.SetFeatureAvailable(button, true);
    QObject::connect(button, &QPushButton::clicked, &window_, [this, open] { open(window_); });
}

void Desk::HangUp()
{
    if (!window_.LineIsOpen()) return;
    window_.RunCommand(window_.Controls().cmdLogOff, kLoggingOff, EscapeUse::Ignored,
                       [this] { EndSession(window_); });
}

}  // namespace orlo
