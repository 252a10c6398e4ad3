#include "simulator/bell_table.h"

#include "simulator/digits.h"

#include <array>
#include <vector>

namespace orlo::simulator
{

namespace
{

//  field     width   value
//  position  2       01..32
//  hour      2       00..23
//  minute    2       00..59
//  days      8       "0" or "1" each
//  relay     1       0..2
//  duration  2 or 3
// One blank between two fields.
struct RingTexts {
    std::vector<std::string> fields;

    bool HaveWidths(const std::array<std::size_t, 6>& widths) const
    {
        if (fields.size() != widths.size()) return false;
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (fields[i].size() != widths[i]) return false;
        return true;
    }

    std::optional<int> Number(std::size_t field, int least, int most) const
    {
        const std::optional<int> value = NumberOf(fields[field]);
        return value && *value >= least && *value <= most ? value : std::nullopt;
    }
};

constexpr int kPositions = 32;
constexpr std::size_t kDays = 3;

std::optional<RingTexts> Cut(BellLayout layout, std::string_view text)
{
    const bool spaced = layout == BellLayout::Spaced;
    if (spaced) {
        if (text.empty() || text.front() != ' ') return std::nullopt;
        text.remove_prefix(1);
    }
    RingTexts texts{Split(text, ' ')};
    if (!texts.HaveWidths({2, 2, 2, 8, 1, spaced ? 2U : 3U})) return std::nullopt;
    if (texts.fields[kDays].find_first_not_of("01") != std::string::npos) return std::nullopt;
    return texts;
}

}  // namespace

std::optional<int> BellTable::Put(std::string_view text)
{
    const std::optional<RingTexts> texts = Cut(layout_, text);
    if (!texts) return std::nullopt;
    const std::optional<int> position = texts->Number(0, 1, kPositions);
    const std::optional<int> hour = texts->Number(1, 0, 23);
    const std::optional<int> minute = texts->Number(2, 0, 59);
    const std::optional<int> relay = texts->Number(4, 0, 2);
    const std::optional<int> duration = texts->Number(5, 0, 999);
    if (!position || !hour || !minute || !relay || !duration) return std::nullopt;

    const std::string& days = texts->fields[kDays];
    if (days.find('1') == std::string::npos)
        rings_.erase(*position);
    else
        rings_[*position] = Bell{*hour, *minute, days, *relay, *duration};
    return position;
}

}  // namespace orlo::simulator
