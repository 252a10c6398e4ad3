#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// Where a terminal finds plant code and badge number in what its reader reads.
struct BadgeLayout {
    int plant_start = 1;
    int plant_length = 5;
    int badge_start = 6;
    int badge_length = 6;
    std::string plant_code = "00001";  // plant_length digits
};

/// The badge parameters of a terminal: five codes in a row, in the order of BadgeLayout. What is
/// written waits aside until it is stored; what is read is what was stored.
class BadgeMemory
{
public:
    BadgeMemory(int first_code, BadgeLayout stored);

    /// The parameter's value: three digits, the plant code as many as it is long if that is more.
    /// Nothing when the model has no such code.
    std::optional<std::string> Read(int code) const;

    /// False, and nothing written, when the model has no such code or the value is not two digits,
    /// for the plant code as many digits as its length waiting.
    [[nodiscard]] bool Write(int code, std::string_view value);

    void Store() { stored_ = waiting_; }

    const BadgeLayout& Stored() const { return stored_; }

private:
    int first_code_;
    BadgeLayout stored_;
    BadgeLayout waiting_;
};

}  // namespace orlo::simulator
