#pragma once

#include "jet/page_file.h"

#include <vector>

namespace jet
{

/// The pages that a usage map lists, ascending. A pointer to page 0 means "no map": no pages.
/// Errors: kDamagedFile, also when the map lists a page that the file does not have.
std::vector<std::uint32_t> ReadUsageMap(PageFile& file, RowPointer map);

}  // namespace jet
