#include "jetfile/json.h"

#include <algorithm>

namespace jetfile
{

const JsonValue* JsonObject::Find(std::u16string_view name) const
{
    const auto member = std::ranges::find(
        members, name, [](const auto& pair) { return std::u16string_view(pair.first); });
    return member == members.end() ? nullptr : &member->second;
}

}  // namespace jetfile
