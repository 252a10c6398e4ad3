#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace jetfile
{

struct JsonMember;
struct JsonValue;

/// As it is written, so that no digit gets lost.
struct JsonNumber {
    std::string text;
};

using JsonArray = std::vector<JsonValue>;

/// The members in the order of the text; no name occurs twice.
struct JsonObject {
    std::vector<JsonMember> members;

    /// Null pointer when there is no such member.
    const JsonValue* Find(std::u16string_view name) const;
};

struct JsonValue {
    std::variant<std::nullptr_t, bool, JsonNumber, std::u16string, JsonArray, JsonObject> held;

    template <typename Kind>
    const Kind* As() const
    {
        return std::get_if<Kind>(&held);
    }
};

struct JsonMember {
    std::u16string name;
    JsonValue value;
};

/// Text that is no JSON. Line and column count from 1, the column in characters.
class JsonError : public std::runtime_error
{
public:
    JsonError(std::size_t line, std::size_t column, const std::string& text)
        : std::runtime_error(text), line_(line), column_(column)
    {
    }

    std::size_t Line() const noexcept { return line_; }
    std::size_t Column() const noexcept { return column_; }

private:
    std::size_t line_;
    std::size_t column_;
};

}  // namespace jetfile
