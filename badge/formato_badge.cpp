#include "badge/formato_badge.h"

#include "badge/object_formato_badge.h"
#include "badge/serial_formato_badge.h"
#include "registry/component_call.h"

namespace orlo
{

namespace
{

/// The frame of both buttons. The line is reset behind a failure too.
void DoBadgeCommand(Contenitore& window, const std::function<void()>& work)
{
    window.AzzeraLabel();
    GuardComponentCalls(window, [&] {
        if (window.PrepareCurrentTerminal()) work();
    });
    window.ResetLineBehindCommand();
}

}  // namespace

void cmdRiceveCard_Click(Contenitore& window, const std::function<void()>& read_clock)
{
    DoBadgeCommand(window, [&] {
        LeggeFormatoBadge(window);
        if (!window.LeaveAsked()) read_clock();
    });
}

void cmdTrasmetteCard_Click(Contenitore& window)
{
    DoBadgeCommand(window, [&window] { SpedisceFormatoBadge(window); });
}

void LeggeFormatoBadge(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr)
        window.NoteOutcome(kUnknownType);
    else if (model->family == LinkFamily::Serial)
        ReadSerialBadgeFormat(window, *model);
    else
        ReadObjectBadgeFormat(window);
}

void SpedisceFormatoBadge(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr)
        window.NoteOutcome(kUnknownType);
    else if (model->family == LinkFamily::Serial)
        SendSerialBadgeFormat(window, *model);
    else
        SendObjectBadgeFormat(window);
}

}  // namespace orlo
