#pragma once

namespace jet
{

/// Jet 3 = Access 97, Jet 4 = Access 2000, 2002 and 2003.
enum class Version { Jet3, Jet4 };

}  // namespace jet
