#pragma once

namespace orlo
{

class FrmMonitor;

/// Lists the punches of the current terminal in the window, without acquiring them, and writes the
/// listing when that is wanted. It looks at the Escape key before each request.
void Monitor(FrmMonitor& form);

/// The same for an Orlo or a Sipa, through the protocol component.
void MonitorOrlo(FrmMonitor& form);

}  // namespace orlo
