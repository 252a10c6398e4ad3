#include "app/desk.h"

#include "acquisition/acquisizione.h"
#include "link/component_library.h"
#include "registry/contenitore_controls.h"

#include <QFile>

#include <algorithm>

namespace orlo
{

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
    QPushButton* const acquire = window_.Controls().cmdAcquisisce;
    window_.SetFeatureAvailable(acquire, true);
    QObject::connect(acquire, &QPushButton::clicked, &window_, [this, acquire] {
        window_.RunCommand(acquire, QStringLiteral("Acquisizione in corso…"), EscapeUse::Heeded,
                           [this] { cmdAcquisisce_Click(window_); });
    });
}

}  // namespace orlo
