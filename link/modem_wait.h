#pragma once

#include "link/workstation.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace orlo
{

/// What ModemWaitForAny returns when none of the texts came.
inline constexpr std::int16_t kNoModemAnswer = 5;

// Both waits read lines of the modem until one of them holds an expected text, wherever in the line
// and in whatever case. `timeout_tenths` and `line_receive_buffer` are those of ModemReadLine: only
// the first read waits the full time, later ones a tenth of the one before, then nothing. A wait is
// given up when a read has brought an empty line and left the buffer empty. As long as characters
// without a CR are in the buffer it goes on reading; after an answer between CR LF pairs the last
// LF is there for ever, as a blank, and the wait for a modem that then keeps silent does not end by
// itself.
//
// So that nobody is left before it, the Escape key is looked at once a second, and with no operator
// present the wait ends at its full time. An abort, or a line that is lost, counts as no answer.
// Window events run only in those looks.

/// True when the text came.
[[nodiscard]] bool ModemWaitFor(Workstation& workstation, SerialPortControl& port,
                                std::string& line_receive_buffer, std::string_view expected,
                                std::int16_t& timeout_tenths);

/// The first of the texts, in their order, that a line holds: 0 to 3, or kNoModemAnswer.
[[nodiscard]] std::int16_t ModemWaitForAny(Workstation& workstation, SerialPortControl& port,
                                           std::string& line_receive_buffer,
                                           const std::array<std::string_view, 4>& expected,
                                           std::int16_t& timeout_tenths);

}  // namespace orlo
