#include "jet/name_map.h"

#include "jet/text_key.h"

namespace jet
{

namespace
{

// A name that has no key, which only a damaged file holds, is the same as itself only.
std::string Folded(std::u16string_view name)
{
    KeyBytes key;
    if (AppendUnicodeTextKey(name, /*ascending=*/true, key)) {
        return {key.begin(), key.end()};
    }
    std::string raw;
    for (const char16_t unit : name) {
        raw += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    }
    return raw;
}

}  // namespace

void NameMap::Add(std::u16string_view name, std::size_t value)
{
    folded_.emplace(Folded(name), value);
}

std::optional<std::size_t> NameMap::Find(std::u16string_view name)
{
    for (std::size_t tries = spellings_.size(); tries > 0; --tries) {
        const Spelling& known = spellings_[next_];
        next_ = next_ + 1 == spellings_.size() ? 0 : next_ + 1;
        if (known.name == name) {
            return known.value;
        }
    }
    const auto found = folded_.find(Folded(name));
    if (found == folded_.end()) {
        return std::nullopt;
    }
    if (spellings_.size() < kMostSpellings) {
        spellings_.push_back({std::u16string(name), found->second});
    }
    return found->second;
}

}  // namespace jet
