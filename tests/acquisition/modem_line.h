#pragma once

#include "simulator/line.h"
#include "simulator/modem.h"
#include "tests/support/test_workstation.h"

#include <QStringList>

#include <optional>
#include <string_view>
#include <vector>

namespace orlo::testing
{

/// A simulated modem between COM1 and a simulated line, all in simulated time.
class ModemLine
{
public:
    explicit ModemLine(TestWorkstation& pc) : pc_(pc) {}

    /// What the modem was told, in order.
    QStringList commands;

    void PutBefore(simulator::Line& line)
    {
        modem_.emplace(simulator::ParseModem("attesa=5000"), line,
                       [this](const simulator::JournalEntry& entry) {
                           commands << QString::fromStdString(entry.command);
                       });
        pc_.com1.answer_to = [this](std::string_view bytes) { return Exchange(bytes); };
        pc_.clock.on_tick = [this] {
            if (modem_->WakeAt() && *modem_->WakeAt() <= Now())
                for (Arrival& arrival : Exchange("")) pc_.com1.Arrive(arrival.bytes);
        };
    }
    void PortClosed() { modem_->PortClosed(); }

private:
    simulator::Instant Now() { return simulator::Instant(pc_.clock.Passed()); }
    std::vector<Arrival> Exchange(std::string_view bytes)
    {
        std::vector<Arrival> arrivals;
        for (const simulator::LineEvent& event : modem_->Receive(bytes, Now()))
            arrivals.push_back({{}, event.bytes});
        return arrivals;
    }

    TestWorkstation& pc_;
    std::optional<simulator::Modem> modem_;
};

}  // namespace orlo::testing
