#pragma once

#include "simulator/far_end.h"
#include "simulator/fault_plan.h"
#include "simulator/frame.h"
#include "simulator/journal.h"
#include "simulator/line_pace.h"
#include "simulator/object_frame.h"
#include "simulator/object_terminal.h"
#include "simulator/terminal.h"

#include <chrono>
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

struct LineSettings {
    int bits_per_second = 0;                  // 0: the line takes no time
    std::chrono::milliseconds turnaround{0};  // between a request and its answer
};

/// A multi-drop line with its terminals, without any port: bytes in, bytes with their times out.
/// Each terminal answers to its own number only; a request that is damaged, or addressed to
/// nobody here, has no answer.
///
///     Line line({}, {Terminal(ParseTerminal("numero=4,modello=Strale,timbrature=20"), clock)},
///               FaultPlan({ParseFaultRule("33#2:silenzio")}));
///     for (const LineEvent& event : line.Receive("\x02\x84" "32" "\xEB\r", now)) …
class Line : public FarEnd
{
public:
    Line(LineSettings settings, std::vector<Terminal> terminals, FaultPlan faults = {},
         Journal journal = {});

    /// A line of Orlo and Sipa terminals, which have a protocol of their own.
    Line(LineSettings settings, std::vector<ObjectTerminal> terminals, FaultPlan faults = {},
         Journal journal = {});

    /// Takes bytes that were put on the line at `now`. Returns what they bring about, ordered by
    /// time. Every well-formed request counts for the faults, whoever it is addressed to.
    std::vector<LineEvent> Receive(std::string_view bytes, Instant now) override;

    /// The line was lost: half a request is forgotten, answers under way are gone. What the
    /// terminals hold stays.
    void HangUp() override;

    std::span<const Terminal> Terminals() const { return terminals_; }
    std::span<const ObjectTerminal> ObjectTerminals() const { return object_terminals_; }

private:
    std::vector<LineEvent> Take(char byte, Instant heard);
    std::vector<LineEvent> Serve(const Telegram& request, Instant heard);
    std::vector<LineEvent> Serve(const ObjectMessage& request, Instant heard);
    std::vector<LineEvent> Exchange(Terminal& terminal, const std::string& command, Instant heard,
                                    std::span<const Fault> faults);
    /// Puts the answer on the line as soon as its terminal is free.
    std::vector<LineEvent> Send(int terminal, const Transmission& answer, Instant heard);
    void Note(int address, const std::string& command, const std::string& deed,
              const std::string& answer = {}) const;

    LineSettings settings_;
    std::vector<Terminal> terminals_;
    std::vector<ObjectTerminal> object_terminals_;  // one of the two is empty
    FaultPlan faults_;
    Journal journal_;
    RequestReader reader_;
    ObjectFrameReader object_reader_{FrameKind::Request};
    Instant last_heard_{0};
    LinePace pace_;
    std::map<int, Instant> busy_until_;  // by terminal: it does one thing after the other
};

}  // namespace orlo::simulator
