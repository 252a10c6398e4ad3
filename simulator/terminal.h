#pragma once

#include "simulator/badge_memory.h"
#include "simulator/bell_table.h"
#include "simulator/punch_memory.h"
#include "simulator/terminal_clock.h"
#include "simulator/terminal_settings.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orlo::simulator
{

struct Reply {
    std::string data;  // of the answer frame
    std::string deed;  // what the terminal did, in Italian, for its log
};

/// One terminal: command text in, answer data out. Every command has an answer, also one that it
/// does not know.
class Terminal
{
public:
    Terminal(TerminalSettings settings, LocalClock machine);

    int Number() const { return settings_.number; }
    std::size_t RecordsPerAnswer() const { return settings_.records_per_answer; }

    /// `most_records`: of a "33" answer; readers take 10 at the most.
    Reply Answer(std::string_view command, std::size_t most_records);
    Reply Answer(std::string_view command) { return Answer(command, RecordsPerAnswer()); }

    /// Does what a command to all terminals says. Without an answer nothing can be handed over, so
    /// the punch transfer is not obeyed. Returns the deed.
    std::string Obey(std::string_view command);

    const TerminalModel& Model() const { return *settings_.model; }
    const PunchMemory& Punches() const { return punches_; }
    const TerminalClock& Clock() const { return clock_; }
    const BadgeMemory& Badge() const { return badge_; }
    const BellTable& Bells() const { return bells_; }

private:
    Reply ReadClock() const;
    Reply SetClock(std::string_view fields);
    Reply Ring(std::string_view text);
    Reply ClearBells();
    Reply MonitorBlock(std::string_view index) const;
    Reply Status() const;
    Reply Transfer(bool acknowledged, std::size_t most_records);
    Reply WriteBadge(std::string_view parameter);
    Reply ReadBadge(std::string_view parameter) const;
    Reply StoreBadge();

    TerminalSettings settings_;
    PunchMemory punches_;
    TerminalClock clock_;
    BadgeMemory badge_;
    BellTable bells_;
};

}  // namespace orlo::simulator
