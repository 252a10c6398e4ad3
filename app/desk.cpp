#include "app/desk.h"

#include "acquisition/acquisizione.h"
#include "badge/formato_badge.h"
#include "registry/contenitore_controls.h"
#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "status/test.h"

#include <utility>

namespace orlo
{

Desk::Desk(const CommandLine& command_line, OperatorDialog& dialog, LineTrace& trace)
    : devices_(command_line.devices),
      ports_{{{devices_, trace}, {devices_, trace}, {devices_, trace}, {devices_, trace}}},
      workstation_{
          clock_, dialog, escape_, trace, {&ports_[0], &ports_[1], &ports_[2], &ports_[3]}},
      window_(state_, workstation_)
{
    WireCommands();
}

void Desk::WireCommands()
{
    const Ui::Contenitore& controls = window_.Controls();
    Wire(
        controls.cmdAcquisisce, QStringLiteral("Acquisizione in corso…"),
        [this] { cmdAcquisisce_Click(window_); }, EscapeUse::Heeded);
    Wire(controls.cmdTest, QStringLiteral("Test in corso…"), [this] { cmdTest_Click(window_); });
    Wire(controls.cmdLeggeOra, QStringLiteral("Lettura dell'ora in corso…"),
         [this] { cmdLeggeOra_Click(window_); });
    Wire(controls.cmdSincro, QStringLiteral("Sincronizzazione in corso…"),
         [this] { cmdSincro_Click(window_); });
    Wire(controls.cmdRiceveCard, QStringLiteral("Lettura del formato badge in corso…"),
         [this] { cmdRiceveCard_Click(window_, [this] { LeggeDataOra(window_); }); });
    Wire(controls.cmdTrasmetteCard, QStringLiteral("Invio del formato badge in corso…"),
         [this] { cmdTrasmetteCard_Click(window_); });
    window_.SetPeriodicRead([this] { Timer1_Timer(window_); });
}

void Desk::Wire(QPushButton* button, const QString& task, std::function<void()> command,
                EscapeUse escape)
{
    window_.SetFeatureAvailable(button, true);
    QObject::connect(button, &QPushButton::clicked, &window_,
                     [this, button, task, command = std::move(command), escape] {
                         window_.RunCommand(button, task, escape, command);
                     });
}

}  // namespace orlo
