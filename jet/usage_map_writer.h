#pragma once

#include "jet/page_file.h"

namespace jet
{

/// Enters a page in a usage map or takes it out. A map that is too short grows in its place; when
/// its page has no room for that, it goes on to bitmap pages. Inside PageFile::Change only.
/// REQUIRES: the pointer is not "no map". Errors: kDamagedFile, kDiskFull, kDiskError.
void SetInUsageMap(PageFile& file, RowPointer map, std::uint32_t page);
void ClearInUsageMap(PageFile& file, RowPointer map, std::uint32_t page);

}  // namespace jet
