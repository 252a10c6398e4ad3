#include "app/desk.h"

#include "acquisition/acquisizione.h"
#include "registry/contenitore_controls.h"

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
    QPushButton* const acquire = window_.Controls().cmdAcquisisce;
    window_.SetFeatureAvailable(acquire, true);
    QObject::connect(acquire, &QPushButton::clicked, &window_, [this, acquire] {
        window_.RunCommand(acquire, QStringLiteral("Acquisizione in corso…"), EscapeUse::Heeded,
                           [this] { cmdAcquisisce_Click(window_); });
    });
}

}  // namespace orlo
