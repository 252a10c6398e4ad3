#pragma once

#include <QLatin1String>

namespace orlo
{

// Captions that more than one place writes or reads. The mark beside an outcome is chosen by these
// very texts, see OutcomeOf.

inline constexpr QLatin1String kCommunicationOk("Comunicazione OK");
inline constexpr QLatin1String kModemLogIn("Modem Log In");
inline constexpr QLatin1String kModemLogOff("Modem Log Off");
inline constexpr QLatin1String kPortNotOpened("Errore aprendo la COM");
inline constexpr QLatin1String kTimeoutCaption("Timeout");
inline constexpr QLatin1String kRxErrorCaption("RX Error");

/// What the line of the last command says of a terminal without a port, which has no caption.
inline constexpr QLatin1String kNoPort("nessuna porta");

}  // namespace orlo
