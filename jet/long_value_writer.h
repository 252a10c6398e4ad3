#pragma once

#include "jet/page_file.h"

namespace jet
{

/// Marks the rows of a long value deleted, as its field says where they are. Their pages stay with
/// the column. Inside PageFile::Change only. Errors: kDamagedFile, kDiskError.
void EraseLongValue(PageFile& file, Bytes field);

}  // namespace jet
