#pragma once

#include "link/protocol_component.h"
#include "link/workstation.h"

#include <string>

namespace orlo
{

/// Whom a call through the component's line is for. Texts are Windows-1252 bytes.
struct ObjectCall {
    std::int16_t terminal = 0;
    std::int16_t priority = 0;
    std::int16_t retries = 0;
    std::string phone_number;
    std::string plant_code;
};

/// Dials over the line that the component holds open and, when the modem has answered anything,
/// tells the plant behind it that it is meant: "@@," and its code, `retries` times at the most. A
/// modem that says nothing is told in a message box; what else goes wrong shows in the transfers
/// that follow. False when the operator ends the call by Escape, which is looked for once a second
/// and before each repetition of the code: the command is not to go on, and nothing was hung up.
[[nodiscard]] bool ObjectModemDial(Workstation& workstation, component::TelegramComunication& line,
                                   const ObjectCall& call);

/// Drops and raises DTR, at which a modem hangs up. Does nothing when the terminal is not reached
/// by modem.
void ObjectPulseDtr(Workstation& workstation, component::TelegramComunication& line, bool by_modem);

}  // namespace orlo
