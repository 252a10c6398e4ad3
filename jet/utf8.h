#pragma once

#include <string>
#include <string_view>

namespace jet
{

/// A surrogate without its partner becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

}  // namespace jet
