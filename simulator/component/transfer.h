#pragma once

#include "simulator/component/terminal_line.h"

#include <memory>

namespace orlo::simulator
{

/// How an object of the component reaches its terminal, and what came of the last time.
class Transfer
{
public:
    explicit Transfer(std::shared_ptr<TerminalLine> line) : line_(std::move(line)) {}

    /// Asks the terminal. True when it obeyed and its answer has as many data as are expected.
    bool Ask(std::int16_t terminal, std::int16_t priority, std::vector<std::string> fields,
             std::size_t expected_data);

    /// Records a failure without asking anybody; false, for the caller to return.
    bool Fail(std::string code);

    TerminalLine& Line() { return *line_; }
    const std::string& Code() const { return outcome_.code; }
    const std::vector<std::string>& Data() const { return outcome_.data; }

private:
    std::shared_ptr<TerminalLine> line_;
    Outcome outcome_;
};

/// The number in a text of the terminal's; 0 when it is none.
int NumberIn(std::string_view text);

}  // namespace orlo::simulator
