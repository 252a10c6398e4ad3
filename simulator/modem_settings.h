#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// How a call ends.
enum class CallOutcome { Connect, NoCarrier, NoDialTone, Busy, Silence };

struct ModemSettings {
    CallOutcome outcome = CallOutcome::Connect;
    /// From the dial command to its result.
    std::chrono::milliseconds dial_time{1000};
    /// Echo of commands after a reset, until E0 or E1 is given.
    bool echo = true;
    /// Between the bytes of a result; 0 sends it in one piece.
    std::chrono::milliseconds byte_pause{0};
    /// Every call loses its carrier behind so many bytes from the terminals; 0: none does.
    std::size_t drop_after_bytes = 0;
};

/// Settings from "key=value,key=value": esito (CONNECT, NO CARRIER, NO DIAL TONE, BUSY, silenzio),
/// attesa and byte-singoli in milliseconds, eco (0, 1), cade in bytes. The empty text gives the
/// usual ones. Throws UsageError.
ModemSettings ParseModem(std::string_view text);

}  // namespace orlo::simulator
