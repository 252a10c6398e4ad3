#pragma once

#include "jet/database.h"

#include <random>
#include <string>
#include <vector>

// Tables as plain lists of rows, to compare a file with.

namespace jet::test
{

/// A row's values, in the order of the table's columns.
using ModelRow = std::vector<Value>;

TableInfo Describe(const Database& database, std::u16string_view table);

ModelRow CurrentRow(Recordset& rows, const TableInfo& table);
/// All rows, by the text of their values: the file's order tells nothing.
std::vector<std::string> SortedTexts(const std::vector<ModelRow>& rows);
std::vector<ModelRow> AllRows(Database& database, const TableInfo& table);

/// A value that the column can hold, Null now and then; edge cases among them.
Value RandomValue(const ColumnInfo& column, bool unicode, std::mt19937& random);

std::string ValueText(const Value& value);

}  // namespace jet::test
