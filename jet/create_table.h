#pragma once

#include "jet/definition_blocks.h"
#include "jet/page_file.h"
#include "jet/schema.h"

namespace jet
{

class MapPages;

/// Makes a table without rows and enters it in the catalog. Inside PageFile::Change only.
/// Errors: kTableExists, kInvalidName, kInvalidColumn, kInvalidIndex, kColumnExists,
/// kColumnNotFound, kIndexExists, kPrimaryExists, kTooManyColumns, kTooManyIndexes,
/// kRecordTooLong; kNotSupported when the catalog's own index cannot be kept because the file has
/// another sort order; kDamagedFile, kDiskFull, kDiskError.
void CreateTable(PageFile& file, const TableDefinition& table);

/// Lays out the columns and indexes, checked but without pages. Errors: the first two lines above.
TableLayout LayOut(const Format& format, const TableDefinition& table);

/// Writes the definition on `page`, which is there, with maps and roots of its own.
void WriteNewDefinition(PageFile& file, std::uint32_t page, TableKind kind, TableLayout table,
                        MapPages& maps);

}  // namespace jet
