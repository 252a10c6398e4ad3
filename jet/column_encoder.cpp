#include "jet/column_encoder.h"

#include "jet/failure.h"
#include "jet/text.h"

#include <bit>
#include <cmath>
#include <limits>

namespace jet
{

namespace
{

using Stored = std::vector<std::uint8_t>;

Stored LittleEndianBytes(std::uint64_t number, std::size_t width)
{
    Stored bytes;
    for (std::size_t i = 0; i < width; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
    return bytes;
}

template <typename Kind>
const Kind& Held(const ColumnLayout& column, const Value& value)
{
    const auto* held = std::get_if<Kind>(&value);
    if (held == nullptr) {
        FailWrongType(column.name);
    }
    return *held;
}

template <typename Number>
Stored EncodeWhole(const ColumnLayout& column, const Value& value)
{
    const std::int32_t number = Held<std::int32_t>(column, value);
    if (number < std::numeric_limits<Number>::min() ||
        number > std::numeric_limits<Number>::max()) {
        FailFieldOverflow(column.name);
    }
    return LittleEndianBytes(static_cast<std::uint32_t>(number), sizeof(Number));
}

double AsDouble(const ColumnLayout& column, const Value& value)
{
    if (const auto* whole = std::get_if<std::int32_t>(&value)) {
        return *whole;
    }
    if (const auto* single = std::get_if<float>(&value)) {
        return double{*single};
    }
    return Held<double>(column, value);
}

Stored EncodeSingle(const ColumnLayout& column, const Value& value)
{
    const double number = AsDouble(column, value);
    if (std::isfinite(number) && std::abs(number) > double{std::numeric_limits<float>::max()}) {
        FailFieldOverflow(column.name);
    }
    return LittleEndianBytes(std::bit_cast<std::uint32_t>(static_cast<float>(number)), 4);
}

Stored EncodeCurrency(const ColumnLayout& column, const Value& value)
{
    constexpr std::int64_t kUnit = 10000;
    const auto* whole = std::get_if<std::int32_t>(&value);
    const std::int64_t amount =
        whole != nullptr ? kUnit * *whole : Held<Currency>(column, value).ten_thousandths;
    return LittleEndianBytes(static_cast<std::uint64_t>(amount), 8);
}

// Three little-endian fields of 4, 2 and 2 bytes, then 8 bytes in order.
Stored EncodeGuid(const Guid& guid)
{
    constexpr std::array<std::size_t, 16> kStoredOrder{3, 2, 1,  0,  5,  4,  7,  6,
                                                       8, 9, 10, 11, 12, 13, 14, 15};
    Stored bytes;
    for (const std::size_t i : kStoredOrder) {
        bytes.push_back(guid.bytes[i]);
    }
    return bytes;
}

// Sign byte, then four words, the most significant first, each of them little-endian.
Stored EncodeNumeric(const ColumnLayout& column, const Numeric& number)
{
    if (number.scale != column.scale) {
        FailWrongType(column.name);
    }
    Stored bytes(17, 0);
    bytes[0] = number.negative ? 0x80 : 0x00;
    for (std::size_t i = 0; i < number.magnitude.size(); ++i) {
        bytes[1 + (i ^ 3)] = number.magnitude[i];
    }
    return bytes;
}

Stored EncodeBinary(const ColumnLayout& column, const Binary& bytes)
{
    if (bytes.size() > column.length) {
        FailFieldTooSmall(column.name);
    }
    return bytes;
}

Stored EncodeText(const Format& format, const ColumnLayout& column, const Text& text)
{
    const auto bytes =
        format.unicode ? EncodeRowText(text, column.compressed) : EncodeCodePage(text);
    if (!bytes) {
        FailCharacter(column.name);
    }
    if (text.size() > column.length / (format.unicode ? 2u : 1u)) {
        FailFieldTooSmall(column.name);
    }
    return *bytes;
}

Stored Encode(const Format& format, const ColumnLayout& column, const Value& value)
{
    switch (column.type) {
        case ColumnType::Byte:
            return EncodeWhole<std::uint8_t>(column, value);
        case ColumnType::Integer:
            return EncodeWhole<std::int16_t>(column, value);
        case ColumnType::Long:
            return EncodeWhole<std::int32_t>(column, value);
        case ColumnType::Currency:
            return EncodeCurrency(column, value);
        case ColumnType::Single:
            return EncodeSingle(column, value);
        case ColumnType::Double:
            return LittleEndianBytes(std::bit_cast<std::uint64_t>(AsDouble(column, value)), 8);
        case ColumnType::Date:
            return LittleEndianBytes(std::bit_cast<std::uint64_t>(Held<Date>(column, value).days),
                                     8);
        case ColumnType::Guid:
            return EncodeGuid(Held<Guid>(column, value));
        case ColumnType::Numeric:
            return EncodeNumeric(column, Held<Numeric>(column, value));
        case ColumnType::Binary:
            return EncodeBinary(column, Held<Binary>(column, value));
        case ColumnType::Text:
            return EncodeText(format, column, Held<Text>(column, value));
        default:
            // Long values are never rewritten; other types are the engine's own.
            FailNotSupported(column.name);
    }
}

}  // namespace

void SetValue(const Format& format, const ColumnLayout& column, const Value& value, RowImage& row)
{
    if (column.type == ColumnType::YesNo) {
        row.SetBit(column.id, Held<bool>(column, value));
        return;
    }
    if (IsNull(value)) {
        if (IsLong(column.type) && row.Field(column)) {
            FailNotSupported(column.name);
        }
        row.SetNull(column);
        return;
    }
    const Stored bytes = Encode(format, column, value);
    if (column.fixed && bytes.size() != column.length) {
        // How a shorter text fills such a column is not known.
        FailNotSupported(column.name);
    }
    row.SetField(column, bytes);
}

}  // namespace jet
