#include "simulator/component/transfer.h"

#include <charconv>
#include <utility>

namespace orlo::simulator
{

bool Transfer::Ask(std::int16_t terminal, std::int16_t priority, std::vector<std::string> fields,
                   std::size_t expected_data)
{
    outcome_ = line_->Exchange(terminal, priority, std::move(fields));
    if (outcome_.Done() && outcome_.data.size() != expected_data) outcome_.code = kWrongAnswer;
    return outcome_.Done();
}

bool Transfer::Fail(std::string code)
{
    outcome_ = {std::move(code), {}};
    return false;
}

int NumberIn(std::string_view text)
{
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace orlo::simulator
