#pragma once

#include "jet/storage.h"
#include "jet/version.h"

namespace jet
{

/// Makes a database without tables. It is written under another name and gets its own when it is
/// whole and safe on the disk. Errors: kFileExists, kAccessDenied, kDiskError, kDiskFull.
void CreateDatabase(Storage& storage, const std::filesystem::path& path, Version version);

}  // namespace jet
