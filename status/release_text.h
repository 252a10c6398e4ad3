#pragma once

#include <string>
#include <string_view>

namespace orlo
{

/// The caption for the firmware release of an Orlo or Sipa: "ABCDEFGHIJ" gives
/// "Release: DEFABCGHIJ".
std::string ReleaseText(std::string_view last_build);

}  // namespace orlo
