#pragma once

#include "jet/database.h"
#include "jet/page_file.h"

namespace jet
{

struct ColumnLayout {
    std::u16string name;
    ColumnType type{};  ///< as in the file, which has further numbers in system tables
    std::uint16_t id = 0;
    bool fixed = false;
    std::uint16_t slot = 0;          ///< of a variable column
    std::uint16_t fixed_offset = 0;  ///< of a fixed column, from the end of the column count
    std::uint16_t length = 0;        ///< bytes
    std::uint8_t scale = 0;          ///< Numeric only
    std::uint16_t sort_order = 0;
    std::uint8_t sort_version = 0;
    bool autonumber = false;
    bool compressed = false;  ///< texts may be stored with a byte per character, Jet 4
};

struct KeyColumn {
    std::size_t column = 0;  ///< place in TableLayout::columns
    bool ascending = true;
};

/// An index tree. Several logical indexes may share one.
struct RealIndex {
    std::vector<KeyColumn> columns;
    std::uint32_t root = 0;
    RowPointer map;
    bool unique = false;
    bool ignore_nulls = false;  ///< rows whose key is all Null are not in it
    bool required = false;      ///< no Null in the key
};

struct LogicalIndex {
    std::u16string name;
    std::uint32_t real = 0;  ///< place in TableLayout::real_indexes, checked
    bool primary = false;
    bool of_relation = false;  ///< made for a relation between tables
};

/// Where the pages of a long-value column are listed.
struct LongValueMaps {
    std::uint16_t column_id = 0;
    RowPointer pages;
    RowPointer free;
};

struct TableLayout {
    std::uint32_t page = 0;            ///< first page: the number by which the file knows the table
    std::uint16_t columns_ever = 0;    ///< columns created so far; every id is below
    std::uint16_t variable_slots = 0;  ///< deleted columns included; every slot is below
    RowPointer data_map;
    RowPointer free_map;  ///< data pages worth trying for a new row; page 0 = there is no such map
    bool user = true;     ///< not one of the engine's own tables
    std::vector<ColumnLayout> columns;  ///< ascending by id
    std::vector<RealIndex> real_indexes;
    std::vector<LogicalIndex> logical_indexes;
    std::vector<LongValueMaps> long_values;
    bool ends_well = true;  ///< its mark stands at its end
};

/// Type of a column whose values lie on pages of their own.
inline bool IsLong(ColumnType type)
{
    return type == ColumnType::Memo || type == ColumnType::Ole;
}

/// Reads the definition that begins on that page. Errors: kDamagedFile, kDiskError.
TableLayout ReadTableDefinition(PageFile& file, std::uint32_t page);

}  // namespace jet
