#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace jet
{

/// Finds things by name without regard to case: two names are the same when the catalog's index
/// would not tell them apart. Spellings that were asked for once are remembered, so that asking
/// again costs one look-up and no folding.
class NameMap
{
public:
    /// The first one of a name stays.
    void Add(std::u16string_view name, std::size_t value);

    std::optional<std::size_t> Find(std::u16string_view name);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const
        {
            return std::hash<std::u16string_view>{}(text);
        }
    };

    // As many as the names have; only a caller that tries out spellings gets there.
    static constexpr std::size_t kMostSpellings = 1024;

    std::unordered_map<std::string, std::size_t> folded_;
    std::unordered_map<std::u16string, std::size_t, Hash, std::equal_to<>> spellings_;
};

}  // namespace jet
