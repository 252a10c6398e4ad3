#include "jetfile/json_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace jetfile
{

namespace
{

constexpr int kDeepest = 100;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

void AppendUtf16(std::uint32_t code_point, std::u16string& out)
{
    if (code_point < 0x10000) {
        out.push_back(static_cast<char16_t>(code_point));
    } else {
        out.push_back(static_cast<char16_t>(0xD800 + ((code_point - 0x10000) >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (code_point & 0x3FF)));
    }
}

bool IsSurrogate(std::uint32_t code_point)
{
    return code_point >= 0xD800 && code_point < 0xE000;
}

class Reader
{
public:
    Reader(std::string_view text, std::size_t first_line) : text_(text), line_(first_line) {}

    JsonValue Whole()
    {
        JsonValue value = Value();
        SkipBlanks();
        if (at_ != text_.size()) Fail("nothing may follow the value");
        return value;
    }

private:
    [[noreturn]] void Fail(const std::string& what) const { FailAt(at_, what); }

    [[noreturn]] void FailAt(std::size_t place, const std::string& what) const
    {
        const std::string_view before = text_.substr(0, place);
        const std::size_t line_start = before.rfind('\n') + 1;  // 0 in the first line
        const auto is_first_byte = [](char c) { return (c & 0xC0) != 0x80; };
        const auto column = std::ranges::count_if(before.substr(line_start), is_first_byte);
        throw JsonError(line_ + static_cast<std::size_t>(std::ranges::count(before, '\n')),
                        1 + static_cast<std::size_t>(column), what);
    }

    bool Sees(char c) const { return at_ < text_.size() && text_[at_] == c; }
    bool SeesDigit() const { return at_ < text_.size() && IsDigit(text_[at_]); }

    bool Take(char c)
    {
        if (!Sees(c)) return false;
        ++at_;
        return true;
    }

    void Expect(char c)
    {
        SkipBlanks();
        if (!Take(c)) Fail(std::string("expected ") + c);
    }

    void SkipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }

    JsonValue Value()
    {
        SkipBlanks();
        if (Sees('{')) return {Nested(&Reader::Object)};
        if (Sees('[')) return {Nested(&Reader::Array)};
        if (Sees('"')) return {String()};
        if (Sees('-') || SeesDigit()) return {Number()};
        if (TakeWord("true")) return {true};
        if (TakeWord("false")) return {false};
        if (TakeWord("null")) return {nullptr};
        Fail(at_ == text_.size() ? "the text ends early" : "expected a value");
    }

    bool TakeWord(std::string_view word)
    {
        if (!text_.substr(at_).starts_with(word)) return false;
        at_ += word.size();
        return true;
    }

    // The caller's stack bounds the depth, so a number does before it.
    template <typename Kind>
    Kind Nested(Kind (Reader::*read)())
    {
        if (++depth_ > kDeepest) Fail("too many values within each other");
        Kind value = (this->*read)();
        --depth_;
        return value;
    }

    JsonObject Object()
    {
        JsonObject object;
        Expect('{');
        SkipBlanks();
        if (Take('}')) return object;
        do {
            SkipBlanks();
            const std::size_t start = at_;
            if (!Sees('"')) Fail("expected a name in quotes");
            std::u16string name = String();
            if (object.Find(name) != nullptr) FailAt(start, "the name occurs twice");
            Expect(':');
            object.members.push_back({std::move(name), Value()});
            SkipBlanks();
        } while (Take(','));
        if (!Take('}')) Fail("expected , or }");
        return object;
    }

    JsonArray Array()
    {
        JsonArray array;
        Expect('[');
        SkipBlanks();
        if (Take(']')) return array;
        do {
            array.push_back(Value());
            SkipBlanks();
        } while (Take(','));
        if (!Take(']')) Fail("expected , or ]");
        return array;
    }

    void Digits()
    {
        if (!SeesDigit()) Fail("expected a digit");
        while (SeesDigit()) ++at_;
    }

    JsonNumber Number()
    {
        const std::size_t start = at_;
        Take('-');
        if (!Take('0')) Digits();
        if (Take('.')) Digits();
        if (Take('e') || Take('E')) {
            if (!Take('+')) Take('-');
            Digits();
        }
        return {std::string(text_.substr(start, at_ - start))};
    }

    std::u16string String()
    {
        std::u16string string;
        Expect('"');
        while (!Take('"')) {
            const std::size_t end = text_.find_first_of("\"\\", at_);
            if (end == std::string_view::npos) FailAt(text_.size(), "the string has no end");
            string += Plain(text_.substr(at_, end - at_));
            at_ = end;
            if (Take('\\')) Escape(string);
        }
        return string;
    }

    std::u16string Plain(std::string_view bytes) const
    {
        const auto control = std::ranges::find_if(bytes, [](char c) { return c >= 0 && c < ' '; });
        if (control != bytes.end()) {
            FailAt(at_ + static_cast<std::size_t>(control - bytes.begin()),
                   "a control character must be written as \\u00XX");
        }
        auto decoded = DecodeUtf8(bytes);
        if (const auto* wrong = std::get_if<std::size_t>(&decoded)) {
            FailAt(at_ + *wrong, "this is no UTF-8");
        }
        return std::get<std::u16string>(std::move(decoded));
    }

    void Escape(std::u16string& string)
    {
        constexpr std::string_view kLetters = "\"\\/bfnrt";
        constexpr std::u16string_view kMeanings = u"\"\\/\b\f\n\r\t";
        const std::size_t start = at_ - 1;
        if (Take('u')) {
            UnicodeEscape(start, string);
            return;
        }
        const std::size_t which =
            at_ < text_.size() ? kLetters.find(text_[at_]) : std::string_view::npos;
        if (which == std::string_view::npos) FailAt(start, "unknown escape");
        string.push_back(kMeanings[which]);
        ++at_;
    }

    void UnicodeEscape(std::size_t start, std::u16string& string)
    {
        const std::uint32_t first = FourHexDigits();
        string.push_back(static_cast<char16_t>(first));
        if (!IsSurrogate(first)) return;
        if (first >= 0xDC00 || !TakeWord("\\u")) FailAt(start, "half a surrogate pair");
        const std::uint32_t second = FourHexDigits();
        if (second < 0xDC00 || !IsSurrogate(second)) FailAt(start, "half a surrogate pair");
        string.push_back(static_cast<char16_t>(second));
    }

    std::uint32_t FourHexDigits()
    {
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i, ++at_) {
            constexpr std::string_view kDigits = "0123456789abcdef";
            const char c = at_ < text_.size() ? text_[at_] : ' ';
            const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
            const std::size_t digit = kDigits.find(lower);
            if (digit == std::string_view::npos) Fail("expected four hexadecimal digits");
            number = number << 4 | static_cast<std::uint32_t>(digit);
        }
        return number;
    }

    std::string_view text_;
    std::size_t line_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

/// The character that the bytes begin with, nothing when they begin with none.
std::optional<std::uint32_t> FirstCodePoint(std::string_view bytes, std::size_t& used)
{
    // The smallest character that needs so many bytes behind the first one.
    constexpr std::array<std::uint32_t, 4> kSmallest{0, 0x80, 0x800, 0x10000};
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::uint32_t first = byte(0);
    const std::size_t more = first < 0x80 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    if ((first >= 0x80 && first < 0xC0) || first >= 0xF8 || more >= bytes.size()) {
        return std::nullopt;
    }
    std::uint32_t code_point = more == 0 ? first : first & (0x3Fu >> more);
    for (std::size_t i = 1; i <= more; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return std::nullopt;
        code_point = code_point << 6 | (byte(i) & 0x3Fu);
    }
    if (code_point < kSmallest[more] || IsSurrogate(code_point) || code_point > 0x10FFFF) {
        return std::nullopt;
    }
    used = more + 1;
    return code_point;
}

}  // namespace

std::variant<std::u16string, std::size_t> DecodeUtf8(std::string_view bytes)
{
    std::u16string text;
    for (std::size_t at = 0, used = 0; at < bytes.size(); at += used) {
        const auto code_point = FirstCodePoint(bytes.substr(at), used);
        if (!code_point) return at;
        AppendUtf16(*code_point, text);
    }
    return text;
}

JsonValue ReadJson(std::string_view text, std::size_t first_line)
{
    return Reader(text, first_line).Whole();
}

}  // namespace jetfile
