#include "tests/jet/independent_reader.h"

#include "jet/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <map>

namespace jet::test
{

namespace
{

// Separators that no sample contains.
constexpr std::string_view kColumnEnd = "\x1F~|";
constexpr std::string_view kRowEnd = "\x1E~|";
constexpr std::string_view kNull = "\x01N";

using TextRow = std::vector<std::string>;

std::vector<std::string> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> parts;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator)) {
        parts.emplace_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
    }
    parts.emplace_back(text);
    return parts;
}

std::string Output(const std::string& command)
{
    std::FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("cannot run " + command);
    }
    std::string output;
    std::array<char, 65536> buffer{};
    while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        output.append(buffer.data(), got);
    }
    if (::pclose(pipe) != 0) {
        throw std::runtime_error("failed: " + command);
    }
    return output;
}

std::string Quoted(std::string_view text)
{
    return "'" + std::string(text) + "'";
}

/// The rows of a table, the column names first. `binary` is the form of binary values.
std::vector<TextRow> Export(const std::filesystem::path& file, const std::string& table,
                            std::string_view binary)
{
    const std::string output =
        Output("mdb-export -Q -d " + Quoted(kColumnEnd) + " -R " + Quoted(kRowEnd) + " -0 " +
               Quoted(kNull) + " -b " + std::string(binary) + " -T " + Quoted("%Y-%m-%d %H:%M:%S") +
               ' ' + Quoted(file.string()) + ' ' + Quoted(table));
    std::vector<TextRow> rows;
    for (const std::string& row : Split(output, kRowEnd)) {
        rows.push_back(Split(row, kColumnEnd));
    }
    rows.pop_back();  // behind the last separator
    return rows;
}

std::string WithPoint(std::string digits, std::size_t decimals, bool negative)
{
    if (digits.size() <= decimals) {
        digits.insert(0, decimals + 1 - digits.size(), '0');
    }
    if (decimals > 0) {
        digits.insert(digits.size() - decimals, ".");
    }
    return (negative ? "-" : "") + digits;
}

std::string HexDigits(const std::uint8_t* bytes, std::size_t size)
{
    std::string digits;
    for (std::size_t i = 0; i < size; ++i) {
        std::array<char, 3> two{};
        std::snprintf(two.data(), two.size(), "%02X", unsigned{bytes[i]});
        digits += two.data();
    }
    return digits;
}

bool Near(const std::string& text, double number, double relative)
{
    return std::abs(std::stod(text) - number) <= relative * std::abs(number);
}

/// Whether the text of the export is the value.
struct Matches {
    const std::string& text;
    const std::string& raw;

    bool operator()(const Null&) const { return text == kNull; }
    bool operator()(bool yes) const { return text == (yes ? "1" : "0"); }
    bool operator()(std::int32_t number) const { return text == std::to_string(number); }
    bool operator()(float number) const { return Near(text, double{number}, 1e-7); }
    bool operator()(double number) const { return Near(text, number, 1e-14); }

    bool operator()(const Currency& amount) const
    {
        const std::int64_t units = amount.ten_thousandths;
        return text == WithPoint(std::to_string(std::abs(units)), 4, units < 0);
    }

    bool operator()(const Date& date) const
    {
        using namespace std::chrono;
        const double day = std::trunc(date.days);
        const sys_seconds moment = sys_days(1899y / 12 / 30) + days(static_cast<int>(day)) +
                                   seconds(std::lround(std::abs(date.days - day) * 86400));
        const year_month_day calendar(floor<days>(moment));
        const hh_mm_ss clock(moment - floor<days>(moment));
        std::array<char, 64> written{};
        std::snprintf(written.data(), written.size(), "%04d-%02u-%02u %02d:%02d:%02d",
                      int{calendar.year()}, unsigned{calendar.month()}, unsigned{calendar.day()},
                      static_cast<int>(clock.hours().count()),
                      static_cast<int>(clock.minutes().count()),
                      static_cast<int>(clock.seconds().count()));
        return text == written.data();
    }

    // The export writes an empty text as null.
    bool operator()(const Text& value) const
    {
        return text == ToUtf8(value) || (value.empty() && text == kNull);
    }

    // The export ends a value of a Binary column at its first byte 00.
    bool operator()(const Binary& value) const
    {
        const auto end = static_cast<std::size_t>(std::ranges::find(value, 0) - value.begin());
        return text == HexDigits(value.data(), value.size()) ||
               text == (end == 0 ? std::string(kNull) : HexDigits(value.data(), end));
    }

    // The export leaves out the last hyphen.
    bool operator()(const Guid& guid) const
    {
        std::string dense = raw;
        std::erase(dense, '-');
        return dense == "{" + HexDigits(guid.bytes.data(), guid.bytes.size()) + "}";
    }

    // The samples need no more than 32 bits.
    bool operator()(const Numeric& number) const
    {
        std::uint64_t magnitude = 0;
        for (const std::uint8_t byte : number.magnitude) {
            magnitude = magnitude << 8 | byte;
        }
        return text == WithPoint(std::to_string(magnitude), number.scale, number.negative);
    }
};

std::vector<Value> CurrentRow(Recordset& rows, const TableInfo& table)
{
    std::vector<Value> values;
    for (const ColumnInfo& column : table.columns) {
        values.push_back(rows.Field(column.name));
    }
    return values;
}

bool SameRow(const std::vector<Value>& values, const TextRow& text, const TextRow& raw)
{
    bool same = values.size() == text.size();
    for (std::size_t i = 0; same && i < values.size(); ++i) {
        same = std::visit(Matches{text[i], raw[i]}, values[i]);
    }
    return same;
}

}  // namespace

std::size_t CompareWithExport(const std::filesystem::path& file, const TableInfo& table,
                              Recordset& rows, bool same_order)
{
    const auto exported = Export(file, ToUtf8(table.name), "hex");
    const auto raw = Export(file, ToUtf8(table.name), "raw");
    TextRow names;
    for (const ColumnInfo& column : table.columns) {
        names.push_back(ToUtf8(column.name));
    }
    EXPECT_EQ(exported.at(0), names);
    EXPECT_EQ(exported.size(), raw.size());
    EXPECT_EQ(exported.size() - 1, rows.RecordCount());
    std::vector<bool> seen(exported.size(), false);
    std::size_t count = 0;
    for (std::size_t expected = 1; !rows.AtEof(); rows.MoveNext(), ++expected) {
        const std::vector<Value> values = CurrentRow(rows, table);
        std::size_t found = same_order ? expected : 1;
        while (!same_order && found < exported.size() &&
               !SameRow(values, exported[found], raw[found])) {
            ++found;
        }
        if (found >= exported.size() || seen[found] ||
            !SameRow(values, exported[found], raw[found])) {
            ADD_FAILURE() << "row " << expected << " is not in the export";
            return count;
        }
        seen[found] = true;
        count += values.size();
    }
    return count;
}

}  // namespace jet::test
