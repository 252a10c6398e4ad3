#pragma once

#include "jet/table_definition.h"
#include "jet/text_key.h"
#include "jet/value.h"

#include <span>

namespace jet
{

enum class KeyResult {
    Built,
    WrongKind,     ///< the value is not of the column's kind or cannot be in the column
    UnknownOrder,  ///< the column has a sort order that the engine does not know
    NoCode,        ///< a character has no code in the sort order
    NotIndexable,  ///< no index on columns of this type
};

/// Appends the bytes by which an index orders one of its columns: a flag byte, then the value.
/// `key` is unspecified when the result is not Built.
[[nodiscard]] KeyResult AppendKey(const Format& format, const ColumnLayout& column, bool ascending,
                                  const Value& value, KeyBytes& key);

}  // namespace jet
