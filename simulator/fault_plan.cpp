#include "simulator/fault_plan.h"

#include "simulator/digits.h"
#include "simulator/usage_error.h"

#include <optional>

namespace orlo::simulator
{

FaultRule ParseFaultRule(std::string_view text)
{
    const std::size_t colon = text.find(':');
    const UsageError refusal(
        "guasto: serve \"N:nome\", \"comando#N:nome\" o \"comando*:nome\", non " +
        std::string(text));
    if (colon == std::string_view::npos) throw refusal;
    const std::string_view target = text.substr(0, colon);
    const Fault fault = ParseFault(text.substr(colon + 1));
    if (target.ends_with('*')) return {std::string(target.substr(0, target.size() - 1)), 0, fault};

    const std::size_t hash = target.rfind('#');
    const bool by_command = hash != std::string_view::npos;
    const std::optional<int> nth = NumberOf(by_command ? target.substr(hash + 1) : target);
    if (!nth || *nth == 0) throw refusal;
    return {std::string(by_command ? target.substr(0, hash) : ""), *nth, fault};
}

FaultPlan::FaultPlan(const std::vector<FaultRule>& rules)
{
    for (const FaultRule& rule : rules) rules_.push_back({rule});
}

std::vector<Fault> FaultPlan::Next(std::string_view command)
{
    std::vector<Fault> hits;
    for (Counted& counted : rules_) {
        if (!command.starts_with(counted.rule.command)) continue;
        ++counted.seen;
        if (counted.rule.nth == 0 || counted.rule.nth == counted.seen)
            hits.push_back(counted.rule.fault);
    }
    return hits;
}

}  // namespace orlo::simulator
