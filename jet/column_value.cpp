#include "jet/column_value.h"

#include "jet/column_width.h"
#include "jet/failure.h"
#include "jet/long_value.h"
#include "jet/text.h"

#include <bit>
#include <utility>

namespace jet
{

namespace
{

// Three little-endian fields of 4, 2 and 2 bytes, then 8 bytes in order.
Guid DecodeGuid(Bytes bytes)
{
    constexpr std::array<std::size_t, 16> kWrittenOrder{3, 2, 1,  0,  5,  4,  7,  6,
                                                        8, 9, 10, 11, 12, 13, 14, 15};
    Guid guid;
    for (std::size_t i = 0; i < guid.bytes.size(); ++i) {
        guid.bytes[i] = bytes[kWrittenOrder[i]];
    }
    return guid;
}

// Sign byte, then four words, the most significant first, each of them little-endian.
Numeric DecodeNumeric(Bytes bytes, std::uint8_t scale)
{
    Numeric numeric;
    numeric.negative = (bytes[0] & 0x80) != 0;
    numeric.scale = scale;
    for (std::size_t i = 0; i < numeric.magnitude.size(); ++i) {
        numeric.magnitude[i] = bytes[1 + (i ^ 3)];
    }
    return numeric;
}

}  // namespace

std::optional<Value> DecodeValue(const Format& format, const ColumnLayout& column, Bytes bytes)
{
    const std::size_t width = ColumnWidth(column.type);
    if (width != 0 && bytes.size() != width) {
        return std::nullopt;
    }
    switch (column.type) {
        case ColumnType::Byte:
            return std::int32_t{bytes[0]};
        case ColumnType::Integer:
            return std::int32_t{static_cast<std::int16_t>(U16(bytes, 0))};
        case ColumnType::Long:
            return static_cast<std::int32_t>(U32(bytes, 0));
        case ColumnType::Currency:
            return Currency{static_cast<std::int64_t>(U64(bytes, 0))};
        case ColumnType::Single:
            return std::bit_cast<float>(U32(bytes, 0));
        case ColumnType::Double:
            return std::bit_cast<double>(U64(bytes, 0));
        case ColumnType::Date:
            return Date{std::bit_cast<double>(U64(bytes, 0))};
        case ColumnType::Guid:
            return DecodeGuid(bytes);
        case ColumnType::Numeric:
            return DecodeNumeric(bytes, column.scale);
        case ColumnType::Text:
            if (auto text = DecodeText(format, bytes)) {
                return std::move(*text);
            }
            return std::nullopt;
        default:
            return Binary(bytes.begin(), bytes.end());
    }
}

Value ReadField(PageFile& file, const ColumnLayout& column, Bytes bytes, std::uint32_t page)
{
    std::optional<Value> value;
    if (column.type == ColumnType::Ole) {
        value = ReadLongValue(file, bytes);
    } else if (column.type == ColumnType::Memo) {
        value = DecodeText(file.Format(), ReadLongValue(file, bytes));
    } else {
        value = DecodeValue(file.Format(), column, bytes);
    }
    if (!value) {
        FailDamaged(page, "valore illeggibile");
    }
    return std::move(*value);
}

Value ReadColumn(PageFile& file, const Row& row, const ColumnLayout& column)
{
    if (column.type == ColumnType::YesNo) {
        return row.Bit(column.id);
    }
    const std::optional<Bytes> bytes = row.Field(column);
    return bytes ? ReadField(file, column, *bytes, row.PageNumber()) : Null{};
}

}  // namespace jet
