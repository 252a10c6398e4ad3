#pragma once

#include "jet/page_file.h"

#include <vector>

namespace jet
{

/// The bytes of a Memo or Ole value, from the field of the row. Errors: kDamagedFile, kDiskError.
std::vector<std::uint8_t> ReadLongValue(PageFile& file, Bytes field);

/// The rows that it lies in. Errors: kDamagedFile, kDiskError.
std::vector<RowPointer> LongValueRows(PageFile& file, Bytes field);

}  // namespace jet
