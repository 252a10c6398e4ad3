#pragma once

#include "jet/column_type.h"

#include <string>
#include <vector>

namespace jet
{

struct ColumnDefinition {
    std::u16string name;
    ColumnType type{};
    int size = 0;  ///< characters for Text, bytes for the others, 0 for Memo and Ole
};

/// What a new table is to be. Sizes count for Text and Binary, 1 to 255.
struct TableDefinition {
    struct IndexColumn {
        std::u16string name;
        bool ascending = true;
    };
    struct Index {
        std::u16string name;
        std::vector<IndexColumn> columns;
        bool primary = false;  ///< unique and required as well
        bool unique = false;
        bool required = false;      ///< no Null in its columns
        bool ignore_nulls = false;  ///< rows with nothing but Null in its columns are not in it
    };

    std::u16string name;
    std::vector<ColumnDefinition> columns;
    std::vector<Index> indexes;
};

}  // namespace jet
