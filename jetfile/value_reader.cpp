#include "jetfile/value_reader.h"

#include "jet/error.h"
#include "jet/utf8.h"
#include "jetfile/decimal.h"
#include "jetfile/type_name.h"
#include "jetfile/value_form.h"

#include <algorithm>
#include <charconv>

namespace jetfile
{

namespace
{

using jet::ColumnType;

class ValueReader
{
public:
    ValueReader(const JsonValue& form, const jet::ColumnDefinition& column)
        : form_(form), column_(column)
    {
    }

    jet::Value Read() const
    {
        if (form_.As<std::nullptr_t>() != nullptr) return jet::Null{};
        switch (column_.type) {
            case ColumnType::YesNo:
                return Held<bool>("true or false");
            case ColumnType::Byte:
            case ColumnType::Integer:
            case ColumnType::Long:
                return Number<std::int32_t>("a whole number");
            case ColumnType::Single:
            case ColumnType::Double:
                return Number<double>("a number");
            case ColumnType::Currency:
                return OrFail(ReadCurrency(Decimal()), R"(an amount like "12.3400")");
            case ColumnType::Numeric:
                return OrFail(ReadNumeric(Decimal()), R"(a decimal number like "12.50")");
            case ColumnType::Date:
                return OrFail(ReadDate(Ascii()), R"(a date like "2004-02-29 13:05:09")");
            case ColumnType::Guid:
                return OrFail(ReadGuid(),
                              R"(a GUID like "{00112233-4455-6677-8899-aabbccddeeff}")");
            case ColumnType::Text:
            case ColumnType::Memo:
                return Held<std::u16string>("a text");
            default:
                return OrFail(ReadBinary(Ascii()), R"(bytes like "0x00ff")");
        }
    }

private:
    [[noreturn]] void Fail(int number, const std::string& what) const
    {
        throw jet::Error(number, "Column \"" + jet::ToUtf8(column_.name) + "\", type " +
                                     TypeName(column_.type) + ": " + what + ".");
    }

    [[noreturn]] void FailForm(const std::string& expected) const
    {
        Fail(jet::kWrongType, "expected " + expected);
    }

    template <typename Kind>
    Kind OrFail(const std::optional<Kind>& read, const std::string& expected) const
    {
        if (!read) FailForm(expected);
        return *read;
    }

    template <typename Kind>
    Kind Held(const std::string& expected) const
    {
        const Kind* held = form_.As<Kind>();
        if (held == nullptr) FailForm(expected);
        return *held;
    }

    template <typename Kind>
    Kind Number(const std::string& expected) const
    {
        const std::string text = Held<JsonNumber>(expected).text;
        Kind number{};
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error == std::errc::result_out_of_range) {
            Fail(jet::kFieldOverflow, "the number is out of range");
        }
        if (end != text.data() + text.size()) FailForm(expected);
        return number;
    }

    /// Empty when the form is no string.
    std::string Ascii() const
    {
        const auto* text = form_.As<std::u16string>();
        return text != nullptr ? jet::ToUtf8(*text) : std::string();
    }

    std::string Decimal() const
    {
        const auto* number = form_.As<JsonNumber>();
        return number != nullptr ? number->text : Ascii();
    }

    static std::optional<jet::Binary> ReadBinary(std::string_view text)
    {
        if (!text.starts_with("0x") || text.size() % 2 != 0) return std::nullopt;
        jet::Binary bytes;
        for (std::size_t at = 2; at < text.size(); at += 2) {
            std::uint8_t byte = 0;
            const char* end = text.data() + at + 2;
            if (std::from_chars(text.data() + at, end, byte, 16).ptr != end) return std::nullopt;
            bytes.push_back(byte);
        }
        return bytes;
    }

    std::optional<jet::Guid> ReadGuid() const
    {
        constexpr std::size_t kSize = 38;
        std::string text = Ascii();
        if (text.size() != kSize || text.front() != '{' || text.back() != '}') return std::nullopt;
        for (const std::size_t dash : {24u, 19u, 14u, 9u}) {
            if (text[dash] != '-') return std::nullopt;
            text.erase(dash, 1);
        }
        const auto bytes = ReadBinary("0x" + text.substr(1, text.size() - 2));
        if (!bytes) return std::nullopt;
        jet::Guid guid;
        std::copy(bytes->begin(), bytes->end(), guid.bytes.begin());
        return guid;
    }

    const JsonValue& form_;
    const jet::ColumnDefinition& column_;
};

}  // namespace

jet::Value ReadValue(const JsonValue& form, const jet::ColumnDefinition& column)
{
    return ValueReader(form, column).Read();
}

}  // namespace jetfile
