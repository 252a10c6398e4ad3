#include "badge/formato_badge.h"

#include "badge/serial_formato_badge.h"

namespace orlo
{

void cmdRiceveCard_Click(Contenitore& window, const std::function<void()>& read_clock)
{
    window.AzzeraLabel();
    window.PrepareCurrentTerminal();
    LeggeFormatoBadge(window);
    read_clock();
}

void cmdTrasmetteCard_Click(Contenitore& window)
{
    window.AzzeraLabel();
    window.PrepareCurrentTerminal();
    SpedisceFormatoBadge(window);
}

void LeggeFormatoBadge(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) return;
    if (model->family == LinkFamily::Serial) ReadSerialBadgeFormat(window, *model);
}

void SpedisceFormatoBadge(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) return;
    if (model->family == LinkFamily::Serial) SendSerialBadgeFormat(window, *model);
}

}  // namespace orlo
