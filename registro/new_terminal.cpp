#include "registro/new_terminal.h"

#include "registro/column_text.h"
#include "registry/terminal_type.h"

#include <cstdint>

namespace orlo::registro
{

namespace
{

bool IsOpen(const jet::Value& value)
{
    return jet::IsNull(value) || value == jet::Value(std::int32_t{0}) || value == jet::Value(0.0F);
}

}  // namespace

TerminalValues NewTerminal()
{
    TerminalValues values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        switch (kTerminalColumns[i].content) {
            case Content::Number:
                values[i] = std::int32_t{0};
                break;
            case Content::Delay:
                values[i] = 0.0F;
                break;
            case Content::YesNo:
                values[i] = false;
                break;
            default:
                break;  // no model, no speed and no text are Null
        }
    }
    values[kAttivo] = true;
    values[kModalita] = std::int32_t{1};
    values[kFunzionamento] = std::int32_t{1};
    values[kPorta] = std::int32_t{1};
    return values;
}

void FillModelDefaults(TerminalValues& values)
{
    const auto* code = std::get_if<std::int32_t>(&values[kTipo]);
    const TerminalModel* model = code != nullptr ? ModelByCode(*code) : nullptr;
    if (model == nullptr) return;
    const auto fill = [&values](Column column, const QString& text) {
        if (!text.isEmpty() && IsOpen(values[column]))
            values[column] = ValueOfText(kTerminalColumns[column], text).value;
    };
    fill(kVelocita, model->default_speed);
    fill(kTentativi, model->default_retries);
    fill(kPriorita, model->default_priority);
    fill(kPrioritaSecondaria, model->default_priority2);
    fill(kRitardo, model->default_delay);
}

}  // namespace orlo::registro
