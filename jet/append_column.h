#pragma once

#include "jet/page_file.h"
#include "jet/schema.h"

namespace jet
{

/// Adds a column behind the others of the table with that definition. Rows stay as they are and
/// read as Null or False there. Inside PageFile::Change only.
/// Errors: kInvalidName, kInvalidColumn, kTooManyColumns, kColumnExists, kRecordTooLong; kReadOnly
/// for the engine's own tables; kDamagedFile, kDiskFull, kDiskError.
void AppendColumn(PageFile& file, std::uint32_t definition_page, const ColumnDefinition& column);

}  // namespace jet
