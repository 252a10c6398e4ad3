#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// Tests the link to the selected terminal and shows what it says about itself and its memory.
void cmdTest_Click(Contenitore& window);

/// The test alone, on the prepared terminal. True when it answered, with a bad frame too.
/// After a time-out on a serial line the port stays open until the next operation closes it, and a
/// terminal behind the modem is hung up.
bool Test(Contenitore& window);

}  // namespace orlo
