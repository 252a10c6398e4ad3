#pragma once

#include "registry/contenitore.h"

#include <string>
#include <string_view>

namespace orlo
{

/// Sends one command to the prepared serial terminal and says in PannelloComunicazione whether it
/// answered: "Comunicazione OK" for any answer, a bad frame among them, or "Timeout". Returns what
/// the exchange returned.
std::string AskTerminal(Contenitore& window, SerialPortControl& port, std::string_view command);

/// A terminal's answer as it is shown: like the component's texts.
QString AnswerText(std::string_view answer);

}  // namespace orlo
