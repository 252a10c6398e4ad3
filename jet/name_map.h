#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jet
{

/// Finds things by name without regard to case: two names are the same when the catalog's index
/// would not tell them apart. Spellings that were asked for once are remembered, so that asking
/// again, best in the same order, costs no folding.
class NameMap
{
public:
    /// The first one of a name stays.
    void Add(std::u16string_view name, std::size_t value);

    std::optional<std::size_t> Find(std::u16string_view name);

private:
    struct Spelling {
        std::u16string name;
        std::size_t value = 0;
    };

    // As many as a table has columns; only a caller that tries out spellings gets there.
    static constexpr std::size_t kMostSpellings = 255;

    std::unordered_map<std::string, std::size_t> folded_;
    std::vector<Spelling> spellings_;
    // Place behind the one found last: whoever reads row by row asks in the same order again.
    std::size_t next_ = 0;
};

}  // namespace jet
