#include "jet/index_key.h"

#include <algorithm>
#include <bit>
#include <limits>

// A key is, per index column, a flag and the value, made so that keys compare as bytes:
//
//            ascending  descending
//  null      00         FF
//  value     7F ...     80 ..., the bytes of the value inverted

namespace jet
{

namespace
{

constexpr std::uint16_t kGeneralSortOrder = 0x0409;

std::uint8_t Inverted(std::uint8_t byte)
{
    return static_cast<std::uint8_t>(~byte);
}

/// Big-endian, the lowest `width` bytes.
KeyBytes BigEndian(std::uint64_t number, std::size_t width)
{
    KeyBytes bytes;
    for (std::size_t i = width; i-- > 0;) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
    return bytes;
}

/// Two's complement with the sign turned, so that negative numbers come first.
KeyBytes SignedKey(std::int64_t number, std::size_t width)
{
    KeyBytes bytes = BigEndian(static_cast<std::uint64_t>(number), width);
    bytes[0] ^= 0x80;
    return bytes;
}

/// The bits of a floating-point number; those of a negative one grow the wrong way round.
KeyBytes FloatKey(std::uint64_t bits, std::size_t width)
{
    KeyBytes bytes = BigEndian(bits, width);
    if ((bytes[0] & 0x80) != 0) {
        std::ranges::transform(bytes, bytes.begin(), Inverted);
    } else {
        bytes[0] ^= 0x80;
    }
    return bytes;
}

void Append(const KeyBytes& bytes, bool ascending, KeyBytes& key)
{
    for (const std::uint8_t byte : bytes) {
        key.push_back(ascending ? byte : Inverted(byte));
    }
}

// Groups of 8 bytes with a 09 behind each but the last, which is filled with 00 and followed by its
// true length. Descending, the 09 stays as it is.
void AppendBinary(Bytes bytes, bool ascending, KeyBytes& key)
{
    constexpr std::size_t kGroup = 8;
    constexpr std::uint8_t kMoreFollows = 9;
    for (; bytes.size() > kGroup; bytes = bytes.subspan(kGroup)) {
        Append({bytes.begin(), bytes.begin() + kGroup}, ascending, key);
        key.push_back(kMoreFollows);
    }
    if (!bytes.empty()) {
        KeyBytes last(bytes.begin(), bytes.end());
        last.resize(kGroup, 0);
        last.push_back(static_cast<std::uint8_t>(bytes.size()));
        Append(last, ascending, key);
    }
}

// The sign byte is the same in both directions: a descending index lists the numbers in an order
// of its own. Changing that would make such indexes unusable.
void AppendNumeric(const Numeric& number, bool ascending, KeyBytes& key)
{
    key.push_back(number.negative ? 0x00 : 0xFF);
    Append({number.magnitude.begin(), number.magnitude.end()}, number.negative != ascending, key);
}

KeyResult AppendText(const Format& format, const ColumnLayout& column, bool ascending,
                     const Value& value, KeyBytes& key)
{
    const auto* text = std::get_if<Text>(&value);
    if (text == nullptr) {
        return KeyResult::WrongKind;
    }
    if (column.sort_order != kGeneralSortOrder || column.sort_version != 0) {
        return KeyResult::UnknownOrder;
    }
    const bool built = format.unicode ? AppendUnicodeTextKey(*text, ascending, key)
                                      : AppendCodePageTextKey(*text, ascending, key);
    return built ? KeyResult::Built : KeyResult::NoCode;
}

template <typename Stored>
KeyResult AppendInteger(const Value& value, bool ascending, KeyBytes& key)
{
    const auto* number = std::get_if<std::int32_t>(&value);
    if (number == nullptr || *number < std::numeric_limits<Stored>::min() ||
        *number > std::numeric_limits<Stored>::max()) {
        return KeyResult::WrongKind;
    }
    Append(std::is_signed_v<Stored>
               ? SignedKey(*number, sizeof(Stored))
               : BigEndian(static_cast<std::uint64_t>(*number), sizeof(Stored)),
           ascending, key);
    return KeyResult::Built;
}

/// For the types whose value becomes bytes whatever it is.
template <typename Kind, typename Encode>
KeyResult AppendAs(const Value& value, const Encode& encode)
{
    const auto* held = std::get_if<Kind>(&value);
    if (held == nullptr) {
        return KeyResult::WrongKind;
    }
    encode(*held);
    return KeyResult::Built;
}

}  // namespace

KeyResult AppendKey(const Format& format, const ColumnLayout& column, bool ascending,
                    const Value& value, KeyBytes& key)
{
    if (IsNull(value) && column.type != ColumnType::YesNo) {
        key.push_back(ascending ? 0x00 : 0xFF);
        return KeyResult::Built;
    }
    key.push_back(ascending ? 0x7F : 0x80);
    const auto append = [&](const KeyBytes& bytes) { Append(bytes, ascending, key); };
    switch (column.type) {
        case ColumnType::YesNo:
            return AppendAs<bool>(
                value, [&](bool yes) { append({yes ? std::uint8_t{0x00} : std::uint8_t{0xFF}}); });
        case ColumnType::Byte:
            return AppendInteger<std::uint8_t>(value, ascending, key);
        case ColumnType::Integer:
            return AppendInteger<std::int16_t>(value, ascending, key);
        case ColumnType::Long:
            return AppendInteger<std::int32_t>(value, ascending, key);
        case ColumnType::Currency:
            return AppendAs<Currency>(value, [&](const Currency& amount) {
                append(SignedKey(amount.ten_thousandths, sizeof(amount.ten_thousandths)));
            });
        case ColumnType::Single:
            return AppendAs<float>(value, [&](float number) {
                append(FloatKey(std::bit_cast<std::uint32_t>(number), sizeof(number)));
            });
        case ColumnType::Double:
            return AppendAs<double>(value, [&](double number) {
                append(FloatKey(std::bit_cast<std::uint64_t>(number), sizeof(number)));
            });
        case ColumnType::Date:
            return AppendAs<Date>(value, [&](const Date& date) {
                append(FloatKey(std::bit_cast<std::uint64_t>(date.days), sizeof(date.days)));
            });
        case ColumnType::Guid:
            return AppendAs<Guid>(
                value, [&](const Guid& guid) { AppendBinary(guid.bytes, ascending, key); });
        case ColumnType::Binary:
            return AppendAs<Binary>(
                value, [&](const Binary& bytes) { AppendBinary(bytes, ascending, key); });
        case ColumnType::Numeric:
            return AppendAs<Numeric>(
                value, [&](const Numeric& number) { AppendNumeric(number, ascending, key); });
        case ColumnType::Text:
        case ColumnType::Memo:
            return AppendText(format, column, ascending, value, key);
        case ColumnType::Ole:
            break;
    }
    return KeyResult::NotIndexable;
}

}  // namespace jet
