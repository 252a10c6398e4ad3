#pragma once

#include <QString>

#include <functional>
#include <string>

namespace orlo
{

class Contenitore;

/// A text from the protocol component as a panel shows it: Windows-1252, control characters as
/// blanks, no more than 200 characters of it.
QString ComponentText(const std::string& text);

/// Runs a part of a command that calls the component, whose code is not ours: whatever is thrown
/// out of it becomes the caption "Errore del componente: …" in PannelloComunicazione and is
/// returned; the empty text when nothing was thrown. Every call to the component happens in here.
QString GuardComponentCalls(Contenitore& window, const std::function<void()>& calls);

}  // namespace orlo
