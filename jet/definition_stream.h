#pragma once

#include "jet/page_file.h"

#include <vector>

namespace jet
{

/// The bytes of a table definition, joined from its pages: the first page whole, the others
/// without their 8-byte headers, cut at the length that the definition gives.
/// Errors: kDamagedFile, kDiskError.
std::vector<std::uint8_t> ReadDefinitionStream(PageFile& file, std::uint32_t first_page);

}  // namespace jet
