#include "tests/jet/table_model.h"

#include "jet/utf8.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <stdexcept>

namespace jet::test
{

namespace
{

struct ToText {
    std::string operator()(const Null&) const { return "Null"; }
    std::string operator()(bool yes) const { return yes ? "True" : "False"; }
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(const Currency& amount) const
    {
        return "C" + std::to_string(amount.ten_thousandths);
    }
    std::string operator()(float number) const
    {
        return "S" + std::to_string(std::bit_cast<std::uint32_t>(number));
    }
    std::string operator()(double number) const
    {
        return "D" + std::to_string(std::bit_cast<std::uint64_t>(number));
    }
    std::string operator()(const Date& date) const { return "T" + (*this)(date.days); }
    std::string operator()(const Text& text) const { return "'" + ToUtf8(text) + "'"; }
    std::string operator()(const Binary& bytes) const
    {
        return "B" + std::string(bytes.begin(), bytes.end());
    }
    std::string operator()(const Guid& guid) const
    {
        return "G" + std::string(guid.bytes.begin(), guid.bytes.end());
    }
    std::string operator()(const Numeric& number) const
    {
        return (number.negative ? "N-" : "N") +
               std::string(number.magnitude.begin(), number.magnitude.end());
    }
};

template <typename Number>
std::int32_t RandomWhole(std::mt19937& random)
{
    const std::int32_t edges[]{std::numeric_limits<Number>::min(),
                               std::numeric_limits<Number>::max(), 0, 1};
    return random() % 8 == 0 ? edges[random() % 4] : static_cast<Number>(random());
}

Text RandomText(int size, bool unicode, std::mt19937& random)
{
    static constexpr std::u16string_view kLetters = u"abcxyzABCXYZ àèéìòùÀÉ0123456789-'.ß€";
    static constexpr std::u16string_view kUnicodeOnly = u"ΩЖłş";
    const auto longest = static_cast<unsigned>(random() % 4 == 0 ? size : std::min(size, 12));
    Text text;
    for (auto left = random() % (longest + 1); left > 0; --left) {
        const auto from = unicode && random() % 16 == 0 ? kUnicodeOnly : kLetters;
        text.push_back(from[random() % from.size()]);
    }
    return text;
}

template <typename Container>
Container RandomBytes(Container bytes, std::mt19937& random)
{
    std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

}  // namespace

std::string ValueText(const Value& value)
{
    return std::visit(ToText{}, value);
}

TableInfo Describe(const Database& database, std::u16string_view table)
{
    for (TableInfo& info : database.TableDefs()) {
        if (info.name == table) {
            return info;
        }
    }
    throw std::runtime_error("no such table");
}

ModelRow CurrentRow(Recordset& rows, const TableInfo& table)
{
    ModelRow row;
    for (const ColumnInfo& column : table.columns) {
        row.push_back(rows.Field(column.name));
    }
    return row;
}

std::vector<std::string> SortedTexts(const std::vector<ModelRow>& rows)
{
    std::vector<std::string> texts;
    for (const ModelRow& row : rows) {
        std::string text;
        for (const Value& value : row) {
            text += ValueText(value) + "\x1F";
        }
        texts.push_back(std::move(text));
    }
    std::ranges::sort(texts);
    return texts;
}

std::vector<ModelRow> AllRows(Database& database, const TableInfo& table)
{
    std::vector<ModelRow> all;
    const auto rows = database.OpenTable(table.name);
    for (; !rows->AtEof(); rows->MoveNext()) {
        all.push_back(CurrentRow(*rows, table));
    }
    return all;
}

Value RandomValue(const ColumnInfo& column, bool unicode, std::mt19937& random)
{
    if (column.type == ColumnType::YesNo) {
        return random() % 2 == 0;
    }
    if (random() % 6 == 0) {
        return Null{};
    }
    switch (column.type) {
        case ColumnType::Byte:
            return RandomWhole<std::uint8_t>(random);
        case ColumnType::Integer:
            return RandomWhole<std::int16_t>(random);
        case ColumnType::Long:
            return RandomWhole<std::int32_t>(random);
        case ColumnType::Currency:
            return Currency{std::int64_t{RandomWhole<std::int32_t>(random)} * 1000};
        case ColumnType::Single:
            return static_cast<float>(RandomWhole<std::int16_t>(random)) / 4;
        case ColumnType::Double:
            return RandomWhole<std::int32_t>(random) / 3.0;
        case ColumnType::Date:
            // From 1900 on: mdb-export does not know earlier days.
            return Date{RandomWhole<std::uint16_t>(random) + 2.25};
        case ColumnType::Text:
            return RandomText(column.size, unicode, random);
        case ColumnType::Binary:
            return RandomBytes(
                Binary(1 + random() % std::max(1u, static_cast<unsigned>(column.size))), random);
        case ColumnType::Guid:
            return Guid{RandomBytes(std::array<std::uint8_t, 16>{}, random)};
        default:
            return Null{};
    }
}

}  // namespace jet::test
