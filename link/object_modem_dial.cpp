#include "link/object_modem_dial.h"

#include "link/pressione_tasto_esc.h"

namespace orlo
{

namespace
{

constexpr int kMostReads = 10000;
constexpr std::int32_t kLongestText = 1000;
constexpr std::chrono::seconds kBetweenLooks{1};

enum class ModemAnswer { Any, None, Aborted };

/// Whether the modem says anything at all: its words are not read, "BUSY" counts like "CONNECT".
ModemAnswer WaitForModem(Workstation& workstation, component::TelegramComunication& line)
{
    std::chrono::milliseconds next_look = workstation.clock.Monotonic() + kBetweenLooks;
    for (int read = 0; read < kMostReads; ++read) {
        if (!line.ReceiveString(kLongestText, /*at_once=*/true).empty()) return ModemAnswer::Any;
        if (workstation.clock.Monotonic() < next_look) continue;
        if (PressioneTastoEsc(workstation)) return ModemAnswer::Aborted;
        next_look = workstation.clock.Monotonic() + kBetweenLooks;
    }
    return ModemAnswer::None;
}

/// The component takes everything by reference; each try gets values of its own.
bool SendPlantCode(component::TelegramComunication& line, ObjectCall call)
{
    std::string command = "@@," + call.plant_code;
    std::string answer;
    return line.SendTelegram(call.terminal, call.priority, command, answer);
}

/// False when the operator wants no more tries.
bool TellPlantCode(Workstation& workstation, component::TelegramComunication& line,
                   const ObjectCall& call)
{
    for (int tried = 0; tried < call.retries; ++tried) {
        if (tried > 0 && PressioneTastoEsc(workstation)) return false;
        const bool acknowledged = SendPlantCode(line, call);
        workstation.clock.YieldToEventLoop();
        if (acknowledged) break;
    }
    return true;
}

void TellSilence(Workstation& workstation)
{
    workstation.dialog.Tell(DialogIcon::Critical, QStringLiteral("Attenzione"),
                            QStringLiteral("Il Modem non risponde"));
    // The key that may have closed the box is not a wish to stop.
    workstation.escape.Forget();
}

}  // namespace

bool ObjectModemDial(Workstation& workstation, component::TelegramComunication& line,
                     const ObjectCall& call)
{
    line.SendString("ATD" + call.phone_number + '\r');
    switch (WaitForModem(workstation, line)) {
        case ModemAnswer::Aborted:
            return false;
        case ModemAnswer::None:
            TellSilence(workstation);
            return true;
        case ModemAnswer::Any:
            break;
    }
    return TellPlantCode(workstation, line, call);
}

void ObjectPulseDtr(Workstation& workstation, component::TelegramComunication& line, bool by_modem)
{
    if (!by_modem) return;
    line.DTR(false);
    line.DTR(true);
    workstation.clock.YieldToEventLoop();
}

}  // namespace orlo
