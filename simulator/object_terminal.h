#pragma once

#include "simulator/object_layout.h"
#include "simulator/object_records.h"
#include "simulator/object_terminal_settings.h"
#include "simulator/object_week.h"
#include "simulator/terminal_clock.h"

#include <span>
#include <string>
#include <vector>

namespace orlo::simulator
{

struct ObjectReply {
    /// "OK" and data, or the code of a failure.
    std::vector<std::string> fields;
    std::string deed;  // what the terminal did, in Italian, for its log
};

/// One Orlo or Sipa terminal: fields of a request in, fields of its answer out. Every request has
/// an answer, also one that it does not know.
class ObjectTerminal
{
public:
    ObjectTerminal(ObjectTerminalSettings settings, LocalClock machine);

    int Number() const { return settings_.number; }
    ObjectReply Answer(std::span<const std::string> request);

    const std::string& Model() const { return settings_.model; }
    const ObjectRecords& Records() const { return records_; }
    const TerminalClock& Clock() const { return clock_; }
    const ObjectLayout& Layout() const { return layout_; }
    const ObjectWeek& Week() const { return week_; }

private:
    using Arguments = std::span<const std::string>;
    using Handler = ObjectReply (ObjectTerminal::*)(Arguments);
    struct Known;

    ObjectReply Status(Arguments arguments);
    ObjectReply Count(Arguments arguments);
    ObjectReply Record(Arguments arguments);
    ObjectReply NextRecord(Arguments arguments);
    ObjectReply Mark(Arguments arguments);
    ObjectReply ReadClock(Arguments arguments);
    ObjectReply SetClock(Arguments arguments);
    ObjectReply Version(Arguments arguments);
    ObjectReply ReadLayout(Arguments arguments);
    ObjectReply SendLayout(Arguments arguments);
    ObjectReply ReadRings(Arguments arguments);
    ObjectReply SendRing(Arguments arguments);
    ObjectReply Telegram(Arguments arguments);

    ObjectReply RecordReply(int number) const;

    ObjectTerminalSettings settings_;
    ObjectRecords records_;
    TerminalClock clock_;
    ObjectLayout layout_;
    ObjectWeek week_;
};

}  // namespace orlo::simulator
