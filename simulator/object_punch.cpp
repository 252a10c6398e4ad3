#include "simulator/object_punch.h"

#include "simulator/digits.h"
#include "simulator/punch_source.h"
#include "simulator/usage_error.h"

#include <optional>
#include <random>
#include <sstream>

namespace orlo::simulator
{

namespace
{

// Monday 2 January 2006, 06:00.
constexpr std::chrono::local_seconds kFirstPunch =
    std::chrono::local_days(std::chrono::year(2006) / std::chrono::January / 2) +
    std::chrono::hours(6);

constexpr int kFirstInformation = 1000;

}  // namespace

std::vector<ObjectPunch> InventObjectPunches(std::size_t count, std::uint32_t seed)
{
    // The distributions of the standard library differ between its makers, the engine does not.
    std::mt19937 engine(seed);
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(engine() % limit); };

    std::vector<ObjectPunch> punches;
    punches.reserve(count);
    std::chrono::local_seconds at = kFirstPunch;
    while (punches.size() < count) {
        at += std::chrono::seconds(1 + below(1200));
        const std::string badge = Digits(1 + below(999999), 6);
        const unsigned kind = below(10);
        const int cause = static_cast<int>(below(100));
        if (kind == 0)
            punches.push_back(
                {"Informazioni", "Info", badge, "", kFirstInformation + cause % 3, at});
        else
            punches.push_back({"Presenze", kind % 2 == 0 ? "Entrata" : "Uscita", badge,
                               Digits(cause, 2), cause, at});
    }
    return punches;
}

ObjectPunch ParseObjectPunch(std::string_view line)
{
    std::istringstream words{std::string(line)};
    ObjectPunch punch;
    std::string personal_cause, date, time, surplus;
    words >> punch.type >> punch.direction >> punch.badge >> punch.cause >> personal_cause >>
        date >> time;
    if (!words || words >> surplus)
        throw UsageError(
            "timbratura: servono tipo, verso, badge, causale, causale personale, data e ora");
    const std::optional<int> number = NumberOf(personal_cause);
    if (!number) throw UsageError("timbratura: causale personale non valida: " + personal_cause);
    punch.personal_cause = *number;
    punch.at = ParsePunchTime(date, time);
    return punch;
}

std::vector<ObjectPunch> ReadObjectPunches(std::istream& lines)
{
    std::vector<ObjectPunch> punches;
    ForEachPunchLine(lines,
                     [&](const std::string& line) { punches.push_back(ParseObjectPunch(line)); });
    return punches;
}

}  // namespace orlo::simulator
