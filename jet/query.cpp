#include "jet/query.h"

#include "jet/failure.h"
#include "jet/text_key.h"
#include "jet/utf8.h"

#include <algorithm>
#include <charconv>

namespace jet
{

namespace
{

constexpr std::u16string_view kBlanks = u" \t\r\n";
constexpr std::u16string_view kSigns = u",.=();[]'\"<>+*/&!";

char16_t Upper(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

bool SameWord(std::u16string_view one, std::u16string_view other)
{
    return std::ranges::equal(one, other, {}, Upper, Upper);
}

/// Goes through the text from the left.
class Scanner
{
public:
    explicit Scanner(std::u16string_view text) : rest_(text) { SkipBlanks(); }

    bool AtEnd() const { return rest_.empty(); }

    bool TakeSign(char16_t sign)
    {
        if (rest_.empty() || rest_.front() != sign) {
            return false;
        }
        Drop(1);
        return true;
    }
    void NeedSign(char16_t sign) { Need(TakeSign(sign)); }

    bool TakeWord(std::u16string_view word)
    {
        if (!SameWord(Word(), word)) {
            return false;
        }
        Drop(word.size());
        return true;
    }
    void NeedWord(std::u16string_view word) { Need(TakeWord(word)); }

    std::u16string Name()
    {
        if (TakeSign(u'[')) {
            const std::size_t end = rest_.find(u']');
            Need(end != std::u16string_view::npos && end > 0);
            std::u16string name(rest_.substr(0, end));
            Drop(end + 1);
            return name;
        }
        std::u16string name(Word());
        Need(!name.empty() && !IsDigit(name.front()));
        Drop(name.size());
        return name;
    }

    Value Literal()
    {
        for (const char16_t quote : {u'\'', u'"'}) {
            if (!rest_.empty() && rest_.front() == quote) {
                return QuotedText(quote);
            }
        }
        return Number();
    }

    void Need(bool condition) const
    {
        if (!condition) {
            FailSyntax(rest_);
        }
    }

private:
    static bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

    std::u16string_view Word() const
    {
        const auto end = std::ranges::find_if(rest_, [](char16_t unit) {
            return kBlanks.find(unit) != kBlanks.npos || kSigns.find(unit) != kSigns.npos;
        });
        return rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    }

    Value QuotedText(char16_t quote)
    {
        Text text;
        std::size_t at = 1;
        for (; at < rest_.size(); ++at) {
            if (rest_[at] == quote && (at + 1 == rest_.size() || rest_[++at] != quote)) {
                Drop(at + (at + 1 == rest_.size() && rest_[at] == quote ? 1 : 0));
                return text;
            }
            text.push_back(rest_[at]);
        }
        FailSyntax(rest_);
    }

    Value Number()
    {
        std::string digits;
        for (const char16_t unit : rest_) {
            if (!IsDigit(unit) && unit != u'.' && !(unit == u'-' && digits.empty())) {
                break;
            }
            digits.push_back(static_cast<char>(unit));
        }
        double number = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), number);
        Need(error == std::errc{} && end == digits.data() + digits.size());
        Drop(digits.size());
        return number;
    }

    void Drop(std::size_t count)
    {
        rest_.remove_prefix(count);
        SkipBlanks();
    }

    void SkipBlanks()
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    }

    std::u16string_view rest_;
};

/// A column with the name of its table before it, if that was given.
struct ColumnName {
    std::u16string table;
    std::u16string column;
};

ColumnName ReadColumnName(Scanner& scanner)
{
    ColumnName name{{}, scanner.Name()};
    if (scanner.TakeSign(u'.')) {
        name = {std::move(name.column), scanner.Name()};
    }
    return name;
}

Query::Condition ReadCondition(Scanner& scanner, std::u16string& table)
{
    if (scanner.TakeSign(u'(')) {
        Query::Condition condition = ReadCondition(scanner, table);
        scanner.NeedSign(u')');
        return condition;
    }
    ColumnName name = ReadColumnName(scanner);
    table = std::move(name.table);
    scanner.NeedSign(u'=');
    return {std::move(name.column), scanner.Literal()};
}

KeyBytes Folded(const Text& text)
{
    KeyBytes key;
    if (!AppendUnicodeTextKey(text, /*ascending=*/true, key)) {
        for (const char16_t unit : text) {
            key.push_back(static_cast<std::uint8_t>(unit >> 8));
            key.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        }
    }
    return key;
}

std::optional<double> NumberIn(const Value& value)
{
    constexpr double kUnit = 10000;
    if (const auto* whole = std::get_if<std::int32_t>(&value)) {
        return *whole;
    }
    if (const auto* single = std::get_if<float>(&value)) {
        return double{*single};
    }
    if (const auto* amount = std::get_if<Currency>(&value)) {
        return static_cast<double>(amount->ten_thousandths) / kUnit;
    }
    const auto* number = std::get_if<double>(&value);
    return number != nullptr ? std::optional(*number) : std::nullopt;
}

}  // namespace

Query ParseQuery(std::u16string_view text)
{
    Scanner scanner(text);
    scanner.NeedWord(u"SELECT");
    scanner.TakeWord(u"DISTINCTROW");
    std::vector<ColumnName> columns{ReadColumnName(scanner)};
    while (scanner.TakeSign(u',')) {
        columns.push_back(ReadColumnName(scanner));
    }
    scanner.NeedWord(u"FROM");
    Query query{scanner.Name(), {}, {}};
    if (scanner.TakeWord(u"WHERE")) {
        std::u16string table;
        query.condition = ReadCondition(scanner, table);
        scanner.Need(table.empty() || SameWord(table, query.table));
    }
    scanner.TakeSign(u';');
    scanner.Need(scanner.AtEnd());
    for (ColumnName& name : columns) {
        scanner.Need(name.table.empty() || SameWord(name.table, query.table));
        query.columns.push_back(std::move(name.column));
    }
    return query;
}

bool Matches(const Value& value, const Value& wanted)
{
    if (const auto* text = std::get_if<Text>(&wanted)) {
        const auto* held = std::get_if<Text>(&value);
        return held != nullptr && (*held == *text || Folded(*held) == Folded(*text));
    }
    const auto number = NumberIn(value);
    return number && *number == std::get<double>(wanted);
}

}  // namespace jet
