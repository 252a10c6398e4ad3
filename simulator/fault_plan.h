#pragma once

#include "simulator/fault.h"

#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// Which requests a fault hits: those whose command begins with `command`, any if it is empty,
/// and of these the `nth` from 1, or all of them if that is 0.
struct FaultRule {
    std::string command;
    int nth = 0;
    Fault fault;
};

/// A rule from "N:fault" (the N-th request), "33#2:fault" (the second whose command begins with
/// "33") or "33*:fault" (each of these; "*:fault" every request). Throws UsageError.
FaultRule ParseFaultRule(std::string_view text);

/// Counts the requests of a line and knows which faults hit each.
class FaultPlan
{
public:
    FaultPlan() = default;
    explicit FaultPlan(const std::vector<FaultRule>& rules);

    /// The faults of the next request, in the order of the rules. To be asked once per request.
    std::vector<Fault> Next(std::string_view command);

private:
    struct Counted {
        FaultRule rule;
        int seen = 0;
    };
    std::vector<Counted> rules_;
};

}  // namespace orlo::simulator
