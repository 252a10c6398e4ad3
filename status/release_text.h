#pragma once

#include <functional>
#include <string>

namespace orlo
{

/// The caption for the firmware release of an Orlo or Sipa: "ABCDEFGHIJ" gives
/// "Release: DEFABCGHIJ". `last_build` is read afresh for each of the four pieces.
std::string ReleaseText(const std::function<std::string()>& last_build);

}  // namespace orlo
