#pragma once

#include "registry/contenitore.h"

namespace orlo
{

// The badge layout of the prepared terminal through the protocol component. Both throw what the
// component throws.

void ReadObjectBadgeFormat(Contenitore& window);

/// Nothing is validated: the component judges what it is given.
void SendObjectBadgeFormat(Contenitore& window);

}  // namespace orlo
