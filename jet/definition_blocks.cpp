#include "jet/definition_blocks.h"

#include "jet/column_width.h"
#include "jet/failure.h"
#include "jet/name_map.h"
#include "jet/text.h"

#include <algorithm>

//  Jet 3  Jet 4  size  column block
//  0      0      1     type
//         1      4     00000659
//  1      5      2     id
//  3      7      2     variable slot; of a fixed column the number of variable columns before it
//  5      9      2     id again; 0 in the engine's own tables
//  7             2     1
//  9      11     2     sort order
//  11            2     code page
//         14     1     version of the sort order
//  13     15     1     flags: 01 fixed, 02 always, 10 system, 20 scrambled
//  14     21     2     offset in the fixed part
//  16     23     2     bytes
//
//  Jet 3  Jet 4  size  key block of a real index
//         0      4     00000783
//  0      4      30    ten times column id and 01 ascending, 00 descending; FFFF = none
//  30     34     4     row pointer of the index's map
//  34     38     4     root page
//  38     46     1     flags: 01 unique, 02 ignores Null, 08 required, in Jet 4 always 80
//
//  Jet 3  Jet 4  size  block of a logical index
//         0      4     00000659
//  0      4      4     number
//  4      8      4     number of the real index
//  9      13     4     FFFFFFFF
//  17     21     2     4, 4: no cascades, it is no relation
//  19     23     1     kind: 1 primary key

namespace jet
{

namespace
{

constexpr std::uint32_t kBlockMark = 0x659;
constexpr std::uint32_t kKeyMark = 0x783;
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kKeyColumns = 10;
constexpr int kLargestSize = 255;

std::uint8_t ColumnFlags(TableKind kind, const ColumnLayout& column)
{
    unsigned flags = column.fixed ? 0x03 : 0x02;
    if (kind == TableKind::System) {
        const bool scrambled = column.name == u"Owner" || column.name == u"SID";
        flags |= scrambled ? 0x30u : 0x10u;
    }
    return static_cast<std::uint8_t>(flags);
}

BlockBytes KeyBlock(const Format& format, const TableLayout& table, const RealIndex& index)
{
    BlockBytes block(format.definition.key_bytes, 0);
    for (std::size_t i = 0; i < kKeyColumns; ++i) {
        const std::size_t at = format.definition.key_columns + 3 * i;
        const bool used = i < index.columns.size();
        PutU16(block, at, used ? table.columns[index.columns[i].column].id : 0xFFFF);
        block[at + 2] = used && index.columns[i].ascending ? 1 : 0;
    }
    PutRowPointer(block, format.definition.key_map, index.map);
    PutU32(block, format.definition.key_root, index.root);
    const unsigned flags = (format.unicode ? 0x80u : 0u) | (index.unique ? 0x01u : 0u) |
                           (index.ignore_nulls ? 0x02u : 0u) | (index.required ? 0x08u : 0u);
    block[format.definition.key_flags] = static_cast<std::uint8_t>(flags);
    if (format.unicode) {
        PutU32(block, 0, kKeyMark);
    }
    return block;
}

BlockBytes LogicalIndexBlock(const Format& format, const LogicalIndex& index)
{
    BlockBytes block(format.definition.index_bytes, 0);
    const std::size_t real = format.definition.index_real;
    PutU32(block, real - 4, index.real);
    PutU32(block, real, index.real);
    PutU32(block, real + 5, 0xFFFFFFFF);
    block[real + 13] = 4;
    block[real + 14] = 4;
    block[format.definition.index_kind] = index.primary ? 1 : 0;
    if (format.unicode) {
        PutU32(block, 0, kBlockMark);
    }
    return block;
}

BlockBytes HeaderBlock(const Format& format, TableKind kind, const TableLayout& table)
{
    BlockBytes header(format.definition.counters, 0);
    header[0] = kDefinitionPage;
    header[1] = 1;
    if (format.unicode) {
        PutU32(header, 12, kBlockMark);
        header[24] = 1;
    }
    const auto counts = std::span(header).subspan(format.definition.table_kind);
    counts[0] = static_cast<std::uint8_t>(kind);
    PutU16(counts, 1, table.columns_ever);
    PutU16(counts, 3, table.variable_slots);
    PutU16(counts, 5, table.columns.size());
    PutU32(counts, 7, table.logical_indexes.size());
    PutU32(counts, 11, table.real_indexes.size());
    PutRowPointer(counts, 15, table.data_map);
    PutRowPointer(counts, 19, table.free_map);
    return header;
}

bool IsSized(ColumnType type)
{
    return type == ColumnType::Text || type == ColumnType::Binary;
}

bool CanBe(const ColumnDefinition& column)
{
    if (IsSized(column.type)) {
        return column.size >= 1 && column.size <= kLargestSize;
    }
    // A ColumnDefinition has no place for the scale of a Numeric column.
    return IsLong(column.type) ||
           (ColumnWidth(column.type) != 0 && column.type != ColumnType::Numeric);
}

}  // namespace

BlockBytes ColumnBlock(const Format& format, const TextOrder& order, TableKind kind,
                       const ColumnLayout& column)
{
    BlockBytes block(format.definition.column_bytes, 0);
    block[0] = static_cast<std::uint8_t>(column.type);
    PutU16(block, format.column.id, column.id);
    PutU16(block, format.column.slot, column.slot);
    const std::size_t ordinal = format.column.slot + 2;
    PutU16(block, ordinal, kind == TableKind::System ? 0 : column.id);
    PutU16(block, format.column.sort_order, order.sort_order);
    if (format.unicode) {
        PutU32(block, 1, kBlockMark);
        block[format.column.sort_version] = order.version;
    } else {
        PutU16(block, ordinal + 2, 1);
        PutU16(block, format.column.sort_order + 2, order.code_page);
    }
    block[format.column.flags] = ColumnFlags(kind, column);
    PutU16(block, format.column.fixed_offset, column.fixed_offset);
    PutU16(block, format.column.length, column.length);
    return block;
}

BlockBytes NameBlock(const Format& format, std::u16string_view name)
{
    const BlockBytes text = format.unicode ? EncodeUtf16(name) : EncodeCodePage(name).value();
    BlockBytes block(format.unicode ? 2 : 1, 0);
    block[0] = static_cast<std::uint8_t>(text.size());
    block.insert(block.end(), text.begin(), text.end());
    return block;
}

BlockBytes LongValueBlock(const LongValueMaps& maps)
{
    BlockBytes block(10, 0);
    PutU16(block, 0, maps.column_id);
    PutRowPointer(block, 2, maps.pages);
    PutRowPointer(block, 6, maps.free);
    return block;
}

BlockBytes DefinitionBytes(const Format& format, const TextOrder& order, TableKind kind,
                           const TableLayout& table, const std::vector<LongValueMaps>& long_values)
{
    BlockBytes stream = HeaderBlock(format, kind, table);
    const auto append = [&](const BlockBytes& block) {
        stream.insert(stream.end(), block.begin(), block.end());
    };
    append(BlockBytes(format.definition.counter_bytes * table.real_indexes.size(), 0));
    for (const ColumnLayout& column : table.columns) {
        append(ColumnBlock(format, order, kind, column));
    }
    for (const ColumnLayout& column : table.columns) {
        append(NameBlock(format, column.name));
    }
    for (const RealIndex& index : table.real_indexes) {
        append(KeyBlock(format, table, index));
    }
    for (const LogicalIndex& index : table.logical_indexes) {
        append(LogicalIndexBlock(format, index));
    }
    for (const LogicalIndex& index : table.logical_indexes) {
        append(NameBlock(format, index.name));
    }
    for (const LongValueMaps& maps : long_values) {
        append(LongValueBlock(maps));
    }
    append({0xFF, 0xFF});
    return stream;
}

void CheckName(const Format& format, std::u16string_view name)
{
    constexpr std::size_t kLongestName = 64;
    constexpr std::u16string_view kForbidden = u".!`[]";
    const bool good = !name.empty() && name.size() <= kLongestName && name.front() != u' ' &&
                      std::ranges::none_of(name, [&](char16_t unit) {
                          return unit < u' ' || kForbidden.find(unit) != kForbidden.npos;
                      });
    if (!good || (!format.unicode && !EncodeCodePage(name))) {
        FailInvalidName(name);
    }
}

void AppendLayout(const Format& format, const ColumnDefinition& column, TableLayout& table)
{
    NameMap names;
    ColumnLayout added;
    for (const ColumnLayout& other : table.columns) {
        names.Add(other.name, other.id);
        if (other.fixed && other.type != ColumnType::YesNo) {
            added.fixed_offset =
                std::max<std::uint16_t>(added.fixed_offset, other.fixed_offset + other.length);
        }
    }
    if (names.Find(column.name)) {
        FailColumnExists(column.name);
    }
    if (table.columns_ever >= kMostColumns) {
        FailTooManyColumns();
    }
    if (!CanBe(column)) {
        FailInvalidColumn(column.name);
    }
    const std::uint16_t width = ColumnWidth(column.type);
    added.name = column.name;
    added.type = column.type;
    added.id = table.columns_ever++;
    added.fixed = width != 0;
    added.slot = added.fixed ? static_cast<std::uint16_t>(
                                   std::ranges::count(table.columns, false, &ColumnLayout::fixed))
                             : table.variable_slots++;
    // A Yes/No column has no place in the fixed part; others have no offset.
    if (!added.fixed || added.type == ColumnType::YesNo) {
        added.fixed_offset = 0;
    }
    added.length = width;
    if (IsSized(column.type)) {
        const int unit = format.unicode && column.type == ColumnType::Text ? 2 : 1;
        added.length = static_cast<std::uint16_t>(unit * column.size);
    }
    table.columns.push_back(std::move(added));
}

}  // namespace jet
