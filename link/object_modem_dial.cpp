#include "link/object_modem_dial.h"

#include "link/pressione_tasto_esc.h"

namespace orlo
{

namespace
{

constexpr int kMostReads = 10000;
constexpr std::int32_t kLongestText = 1000;
constexpr std::chrono::seconds kBetweenLooks{1};

/// Whether the modem says anything at all: its words are not read, "BUSY" counts like "CONNECT".
bool ModemAnswers(Workstation& workstation, component::TelegramComunication& line)
{
    std::chrono::milliseconds next_look = workstation.clock.Monotonic() + kBetweenLooks;
    for (int read = 0; read < kMostReads; ++read) {
        if (!line.ReceiveString(kLongestText, /*at_once=*/true).empty()) return true;
        if (workstation.clock.Monotonic() < next_look) continue;
        if (PressioneTastoEsc(workstation)) return false;
        next_look = workstation.clock.Monotonic() + kBetweenLooks;
    }
    return false;
}

/// The component takes everything by reference; each try gets values of its own.
bool SendPlantCode(component::TelegramComunication& line, ObjectCall call)
{
    std::string command = "@@," + call.plant_code;
    std::string answer;
    return line.SendTelegram(call.terminal, call.priority, command, answer);
}

}  // namespace

void ObjectModemDial(Workstation& workstation, component::TelegramComunication& line,
                     const ObjectCall& call)
{
    line.SendString("ATD" + call.phone_number + '\r');
    if (!ModemAnswers(workstation, line)) {
        workstation.dialog.Tell(DialogIcon::Critical, QStringLiteral("Attenzione"),
                                QStringLiteral("Il Modem non risponde"));
        // The key that may have closed the box is not a wish to stop.
        workstation.escape.Query();
        return;
    }
    bool acknowledged = false;
    for (int tried = 0; tried < call.retries && !acknowledged; ++tried) {
        acknowledged = SendPlantCode(line, call);
        workstation.clock.YieldToEventLoop();
    }
}

void ObjectPulseDtr(Workstation& workstation, component::TelegramComunication& line, bool by_modem)
{
    if (!by_modem) return;
    line.DTR(false);
    line.DTR(true);
    workstation.clock.YieldToEventLoop();
}

}  // namespace orlo
