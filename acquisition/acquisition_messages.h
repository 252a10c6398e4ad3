#pragma once

#include <QString>

namespace orlo
{

class Contenitore;

/// A critical box titled "Attenzione", by which a command ends: nothing is said to go on while it
/// stands.
void TellCritical(Contenitore& window, const QString& text, const QString& informative = {});

/// Tells that punches could not be written into the file named in NomeFile, and returns that text.
/// `error` is the reason, `advice` what to do.
QString TellNotStored(Contenitore& window, const QString& error, const QString& advice);

}  // namespace orlo
