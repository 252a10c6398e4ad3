#pragma once

#include "jet/header.h"
#include "jet/schema.h"
#include "jet/table_definition.h"

namespace jet
{

using BlockBytes = std::vector<std::uint8_t>;

// The pieces of a definition stream; where they stand is told in table_definition.cpp.

enum class TableKind : std::uint8_t { User = 0x4E, System = 0x53 };

BlockBytes ColumnBlock(const Format& format, const TextOrder& order, TableKind kind,
                       const ColumnLayout& column);

/// A name behind its length. REQUIRES: CheckName let it pass.
BlockBytes NameBlock(const Format& format, std::u16string_view name);

BlockBytes LongValueBlock(const LongValueMaps& maps);

/// A whole stream, for a table without rows.
BlockBytes DefinitionBytes(const Format& format, const TextOrder& order, TableKind kind,
                           const TableLayout& table, const std::vector<LongValueMaps>& long_values);

/// Errors: kInvalidName.
void CheckName(const Format& format, std::u16string_view name);

/// What the file keeps of a new column; id, slot and place in the fixed part come from the table,
/// to which it is appended. Errors: kInvalidColumn for a type or size that cannot be,
/// kTooManyColumns, kColumnExists.
void AppendLayout(const Format& format, const ColumnDefinition& column, TableLayout& table);

}  // namespace jet
