#pragma once

#include <filesystem>

namespace jet
{

/// The path itself if there is such a file, else the file of the same folder whose name differs
/// only in the case of ASCII letters (the first in byte order if there are several), else the path.
std::filesystem::path FindFile(const std::filesystem::path& path);

}  // namespace jet
