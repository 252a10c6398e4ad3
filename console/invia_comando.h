#pragma once

#include <string>

namespace orlo
{

class Contenitore;

/// What a command brought for the two answer displays, as bytes.
struct CommandAnswer {
    std::string received_data;
    /// The component's failure code; empty for a serial model.
    std::string received_command;
};

/// Sends a raw command to the current terminal, once and without the terminal's delay, and says in
/// PannelloComunicazione how the line did. To a serial model the command is the body of a telegram,
/// as it was typed; `parameters` are for the component of an Orlo or a Sipa. Texts are Windows-1252
/// bytes.
CommandAnswer InviaComando(Contenitore& window, const std::string& command,
                           const std::string& parameters);

}  // namespace orlo
