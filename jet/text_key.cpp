#include "jet/text_key.h"

#include "jet/text.h"
#include "jet/text_key_tables.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr std::size_t kKeyCharacters = 255;

// The accent code of a letter without accent.
constexpr std::uint8_t kPlain = 2;

std::u16string_view KeyPart(std::u16string_view text)
{
    text = text.substr(0, kKeyCharacters);
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

void AppendCode(std::uint16_t code, KeyBytes& out)
{
    if (code > 0xFF) {
        out.push_back(static_cast<std::uint8_t>(code >> 8));
    }
    if (code != 0) {
        out.push_back(static_cast<std::uint8_t>(code & 0xFF));
    }
}

void AppendInverted(const KeyBytes& bytes, KeyBytes& out)
{
    std::ranges::transform(bytes, std::back_inserter(out),
                           [](std::uint8_t byte) { return static_cast<std::uint8_t>(~byte); });
}

/// The three strings of a Jet 4 key while its text is read.
class UnicodeKey
{
public:
    void Add(const UnicodeKeyCode& code)
    {
        switch (code.kind) {
            case UnicodeKeyKind::Letter:
                break;
            case UnicodeKeyKind::Accented:
                FillAccents();
                AppendCode(code.extra, accents_);
                ++accented_;
                break;
            case UnicodeKeyKind::Combining:
                Combine(static_cast<std::uint8_t>(code.extra));
                return;
            case UnicodeKeyKind::Unprintable:
                AddUnprintable(static_cast<std::uint8_t>(code.extra));
                return;
            case UnicodeKeyKind::Ignored:
                return;
        }
        AppendCode(code.inline_code, inline_);
        ++position_;
    }

    /// Without the 00 that ends an ascending key.
    KeyBytes Join()
    {
        while (!accents_.empty() && accents_.back() <= kPlain) {
            accents_.pop_back();
        }
        KeyBytes key = inline_;
        key.push_back(1);
        key.insert(key.end(), accents_.begin(), accents_.end());
        if (!unprintables_.empty()) {
            key.insert(key.end(), 3, 1);
            key.insert(key.end(), unprintables_.begin(), unprintables_.end());
        }
        return key;
    }

private:
    void FillAccents()
    {
        if (accented_ < position_) {
            accents_.insert(accents_.end(), position_ - accented_, kPlain);
            accented_ = position_;
        }
    }

    void Combine(std::uint8_t extra)
    {
        FillAccents();
        if (accents_.empty()) {
            accents_.push_back(extra);
            starts_with_mark_ = true;
        } else {
            accents_.back() = static_cast<std::uint8_t>(accents_.back() + extra);
        }
    }

    // Its place is the number of characters before it, but two accent bytes of one letter count
    // twice, and a combining mark at the very start does not.
    void AddUnprintable(std::uint8_t extra)
    {
        const std::size_t place =
            accents_.size() + (position_ - accented_) - (starts_with_mark_ ? 1 : 0);
        const auto offset = static_cast<std::uint16_t>(0x8000 | (7 + 4 * place));
        unprintables_.insert(unprintables_.end(),
                             {static_cast<std::uint8_t>(offset >> 8),
                              static_cast<std::uint8_t>(offset & 0xFF), 6, extra});
    }

    KeyBytes inline_;
    KeyBytes accents_;
    KeyBytes unprintables_;
    std::size_t position_ = 0;  // characters with an inline code
    std::size_t accented_ = 0;  // those that the accents speak of
    bool starts_with_mark_ = false;
};

}  // namespace

//  inline codes, 01, accents without those of plain letters at the end,
//  if there are unprintables 01 01 01 and for each its place (2 bytes), 06, code;
//  then 00. Descending: all of that inverted, then a plain 00.
bool AppendUnicodeTextKey(std::u16string_view text, bool ascending, KeyBytes& key)
{
    UnicodeKey parts;
    for (const char16_t unit : KeyPart(text)) {
        const UnicodeKeyCode* code = FindUnicodeKeyCode(unit);
        if (code == nullptr) {
            return false;
        }
        parts.Add(*code);
    }
    KeyBytes joined = parts.Join();
    if (ascending) {
        key.insert(key.end(), joined.begin(), joined.end());
    } else {
        joined.push_back(0);
        AppendInverted(joined, key);
    }
    key.push_back(0);
    return true;
}

//  inline codes, then 00, or if there are accents the half bytes 0, accents, 0, filled up with
//  another 0 to whole bytes. An accent is preceded by a 2 for each letter without one that could
//  have it. Descending: all of that inverted.
bool AppendCodePageTextKey(std::u16string_view text, bool ascending, KeyBytes& key)
{
    KeyBytes joined;
    KeyBytes halves{0};
    std::size_t plain = 0;
    for (const char16_t unit : KeyPart(text)) {
        const auto byte = CodePageByte(unit);
        if (!byte) {
            return false;
        }
        const CodePageKeyCode& code = CodePageKeyCodeOf(*byte);
        AppendCode(code.inline_code, joined);
        if (code.accent != 0) {
            halves.insert(halves.end(), plain, kPlain);
            halves.push_back(code.accent);
            plain = 0;
        }
        plain += code.places;
    }
    halves.push_back(0);
    halves.push_back(0);
    if (halves.size() == 3) {
        joined.push_back(0);
    } else {
        for (std::size_t i = 0; i + 1 < halves.size(); i += 2) {
            joined.push_back(static_cast<std::uint8_t>(halves[i] << 4 | halves[i + 1]));
        }
    }
    if (ascending) {
        key.insert(key.end(), joined.begin(), joined.end());
    } else {
        AppendInverted(joined, key);
    }
    return true;
}

}  // namespace jet
