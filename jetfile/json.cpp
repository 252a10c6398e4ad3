#include "jetfile/json.h"

#include <algorithm>

namespace jetfile
{

const JsonValue* JsonObject::Find(std::u16string_view name) const
{
    const auto member = std::ranges::find(members, name, &JsonMember::name);
    return member == members.end() ? nullptr : &member->value;
}

}  // namespace jetfile
