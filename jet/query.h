#pragma once

#include "jet/value.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jet
{

/// What a SELECT statement on one table asks for.
struct Query {
    struct Condition {
        std::u16string column;
        Value value;  ///< double or Text
    };

    std::u16string table;
    std::vector<std::u16string> columns;
    std::optional<Condition> condition;
};

/// Reads
///
///     SELECT [DISTINCTROW] column, ... FROM table [WHERE column = value] [;]
///
/// where names may stand in brackets and columns behind their table's name and a point, the
/// condition in parentheses, and a value is a number or a text in quotes, double inside it.
/// Keywords are known in every case. Errors: kSyntaxError for anything else.
Query ParseQuery(std::u16string_view text);

/// Whether a row's value is the one asked for: numbers by value, texts as an index would have it,
/// Null never.
bool Matches(const Value& value, const Value& wanted);

}  // namespace jet
