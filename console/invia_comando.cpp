#include "console/invia_comando.h"

#include "link/exchange.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"

#include <utility>

namespace orlo
{

namespace
{

void Caption(Contenitore& window, const QString& text)
{
    window.Controls().PannelloComunicazione->setText(text);
}

CommandAnswer SendSerial(Contenitore& window, const std::string& command)
{
    const PortSession session(window);
    if (session.Port() == nullptr) {
        window.NoteOutcome(session.Refusal());
        return {};
    }
    const std::string answer = ExchangeTelegram(window.Station(), *session.Port(),
                                                window.State().CurrentTerminalNumber, command);
    if (!IsAnswer(answer)) LetLineRunOut(window.Station(), *session.Port());
    if (answer == kTimeout) {
        Caption(window, kTimeoutCaption);
        return {};
    }
    // A bad frame is an answer too: what is wrong stands in its display.
    Caption(window, kCommunicationOk);
    return {.received_data = answer, .received_command = {}};
}

CommandAnswer SendObject(Contenitore& window, std::string command, std::string parameters)
{
    ProgramState& state = window.State();
    component::TelegramComunication& line = *state.Component->TelegramObject;
    // Taken by reference; the block keeps its values.
    std::int16_t terminal = state.CurrentTerminalNumber;
    std::int16_t priority = state.CurrentPriority;
    if (line.SendTelegram(terminal, priority, command, parameters)) {
        Caption(window, kCommunicationOk);
        return {.received_data = line.ReceivedData(), .received_command = {}};
    }
    std::string code = line.ReceivedCommand();
    if (code.empty()) Caption(window, QStringLiteral("Errore: il componente non dà un codice."));
    return {.received_data = line.ReceivedData(), .received_command = std::move(code)};
}

}  // namespace

CommandAnswer InviaComando(Contenitore& window, const std::string& command,
                           const std::string& parameters)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) {
        Caption(window, kUnknownTypeError);
        return {};
    }
    if (model->family == LinkFamily::Serial) return SendSerial(window, command);
    if (window.State().Component == nullptr) return {};
    CommandAnswer answer;
    GuardComponentCalls(window, [&] { answer = SendObject(window, command, parameters); });
    return answer;
}

}  // namespace orlo
