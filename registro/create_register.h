#pragma once

#include "jet/version.h"

#include <QString>

namespace orlo::registro
{

/// Makes "nimbo.mdb", with an empty register, and the "Configurazione.ini" that leads to it in an
/// existing folder: both or neither. Throws Failure when one is already there, jet::Error.
void CreateRegister(const QString& folder, jet::Version version);

}  // namespace orlo::registro
