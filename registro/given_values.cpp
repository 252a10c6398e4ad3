#include "registro/given_values.h"

#include "registro/new_terminal.h"

namespace orlo::registro
{

void ApplyGiven(TerminalValues& terminal, const GivenValues& given)
{
    const auto model = given.find(kTipo);
    if (model != given.end() && model->second != terminal[kTipo]) {
        terminal[kTipo] = model->second;
        FillModelDefaults(terminal);
    }
    for (const auto& [column, value] : given) terminal[column] = value;
}

}  // namespace orlo::registro
