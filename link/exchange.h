#pragma once

#include "link/workstation.h"

#include <functional>
#include <string>
#include <string_view>

namespace orlo
{

/// Work done between sending a request and waiting for its answer, at no cost of line time.
using MeanwhileWork = std::function<void()>;

/// One request, one wait of 2 seconds at the most, no retry. The result is the answer's data,
/// kTimeout, kRxError, or the empty text at once for terminal number 0 or less: number 0 addresses
/// all terminals and none answers. A line that is lost counts as a time-out. The wait sleeps in the
/// operating system; window events do not run.
std::string ExchangeTelegram(Workstation& workstation, SerialPortControl& port, int terminal_number,
                             std::string_view command, const MeanwhileWork& meanwhile = {});

/// The same exchange with a wait of 101 changes of the seconds-since-midnight clock, for a command
/// that takes the terminal longer.
std::string ExchangeTelegramTicks(Workstation& workstation, SerialPortControl& port,
                                  int terminal_number, std::string_view command);

/// Throws away what still comes over the line until nothing has come for a second; 3 seconds at the
/// most. To be used behind an exchange without an answer: one that comes too late would be taken
/// for the answer to the next request. Behind one that was not asked for 0.3 and 0.6 seconds, the
/// window being frozen meanwhile.
void LetLineRunOut(Workstation& workstation, SerialPortControl& port);

}  // namespace orlo
