#pragma once

#include "jet/schema.h"
#include "jetfile/json.h"

#include <variant>

namespace jetfile
{

/// Every row whose columns have these values.
struct RowsWhere {
    JsonObject values;
};

/// The first row that an index finds for a key.
struct RowByKey {
    std::u16string index;
    JsonArray key;
};

using Selection = std::variant<RowsWhere, RowByKey>;

struct Insert {
    std::u16string table;
    JsonObject row;
};

struct Update {
    std::u16string table;
    Selection selection;
    JsonObject set;
};

struct Delete {
    std::u16string table;
    Selection selection;
};

struct AddColumn {
    std::u16string table;
    jet::ColumnDefinition column;
};

using Operation = std::variant<Insert, Update, Delete, AddColumn, jet::TableDefinition>;

/// An operation in the form that --help shows. What it does not know is refused, so that a
/// misspelt member is not passed over. Errors: jet::Error, kInvalidArgument.
Operation ReadOperation(const JsonValue& form);

}  // namespace jetfile
