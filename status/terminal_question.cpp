#include "status/terminal_question.h"

#include "link/exchange.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"

namespace orlo
{

std::string AskTerminal(Contenitore& window, SerialPortControl& port, std::string_view command)
{
    std::string answer =
        ExchangeTelegram(window.Station(), port, window.State().CurrentTerminalNumber, command);
    window.Controls().PannelloComunicazione->setText(answer == kTimeout ? kTimeoutCaption
                                                                        : kCommunicationOk);
    if (!IsAnswer(answer)) LetLineRunOut(window.Station(), port);
    return answer;
}

QString AnswerText(std::string_view answer)
{
    return ComponentText(std::string(answer));
}

}  // namespace orlo
