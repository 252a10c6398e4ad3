#include "jet/table_definition.h"

#include "jet/definition_stream.h"
#include "jet/failure.h"
#include "jet/text.h"

#include <algorithm>

// The definition stream. Offsets count from its start, which is the start of the first page.
//
//  Jet 3  Jet 4  size  header
//  20     40     1     4E user table, 53 system table
//  21     41     2     columns ever created
//  23     43     2     variable slots
//  25     45     2     columns
//  27     47     4     logical indexes
//  31     51     4     real indexes
//  35     55     4     row pointer of the map of data pages
//  39     59     4     row pointer of the map of data pages with free space
//  43     63           end of the header
//
// Then: a counter block per real index, the column blocks, the column names, a key block per real
// index, the logical index blocks, the index names, and the maps of the long-value columns.

namespace jet
{

namespace
{

constexpr std::uint8_t kUserTable = 0x4E;
constexpr std::uint8_t kSystemTable = 0x53;
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kKeyColumns = 10;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr std::uint8_t kFixedFlag = 0x01;
constexpr std::uint8_t kAscendingFlag = 0x01;
constexpr std::uint8_t kAutonumberFlag = 0x04;
constexpr std::uint8_t kCompressedFlag = 0x01;
constexpr std::uint8_t kUniqueFlag = 0x01;
constexpr std::uint8_t kIgnoreNullsFlag = 0x02;
constexpr std::uint8_t kRequiredFlag = 0x08;
constexpr std::uint8_t kPrimaryKind = 1;
constexpr std::uint8_t kRelationKind = 2;

/// Walks through the stream; running past its end is damage.
class Reader
{
public:
    Reader(const Format& format, Bytes stream, std::uint32_t page)
        : format_(format), rest_(stream), page_(page)
    {
    }

    Bytes Take(std::size_t size)
    {
        if (size > rest_.size()) {
            Fail("definizione di tabella troppo corta");
        }
        const Bytes taken = rest_.first(size);
        rest_ = rest_.subspan(size);
        return taken;
    }

    std::size_t Left() const { return rest_.size(); }

    std::u16string Name()
    {
        if (!format_.unicode) {
            return DecodeCodePage(Take(Take(1)[0]));
        }
        auto name = DecodeUtf16(Take(U16(Take(2), 0)));
        if (!name) {
            Fail("nome illeggibile nella definizione di tabella");
        }
        return std::move(*name);
    }

    [[noreturn]] void Fail(std::string_view what) const { FailDamaged(page_, what); }

private:
    const Format& format_;
    Bytes rest_;
    std::uint32_t page_;
};

struct Counts {
    std::size_t columns;
    std::size_t logical_indexes;
    std::size_t real_indexes;
};

Counts ReadHeader(const Format& format, Reader& reader, TableLayout& table)
{
    const Bytes header =
        reader.Take(format.definition.counters).subspan(format.definition.table_kind);
    if (header[0] != kUserTable && header[0] != kSystemTable) {
        reader.Fail("non è una definizione di tabella");
    }
    table.columns_ever = U16(header, 1);
    table.variable_slots = U16(header, 3);
    table.data_map = RowPointerAt(header, 15);
    table.free_map = RowPointerAt(header, 19);
    table.user = header[0] == kUserTable;
    const Counts counts{U16(header, 5), U32(header, 7), U32(header, 11)};
    if (counts.columns > std::min<std::size_t>(kMostColumns, table.columns_ever) ||
        table.variable_slots > table.columns_ever) {
        reader.Fail("numero di campi impossibile");
    }
    return counts;
}

ColumnLayout ColumnFromBlock(const Format& format, Bytes block)
{
    ColumnLayout column;
    column.type = static_cast<ColumnType>(block[0]);
    column.id = U16(block, format.column.id);
    column.fixed = (block[format.column.flags] & kFixedFlag) != 0;
    column.autonumber = (block[format.column.flags] & kAutonumberFlag) != 0;
    column.compressed = format.column.extended_flags != 0 &&
                        (block[format.column.extended_flags] & kCompressedFlag) != 0;
    column.slot = U16(block, format.column.slot);
    column.fixed_offset = U16(block, format.column.fixed_offset);
    column.length = U16(block, format.column.length);
    if (column.type == ColumnType::Numeric) {
        column.scale = block[format.column.scale];
    } else {
        column.sort_order = U16(block, format.column.sort_order);
        column.sort_version =
            format.column.sort_version == 0 ? std::uint8_t{0} : block[format.column.sort_version];
    }
    return column;
}

// The file may list the columns in any order; the id is their order of creation.
void ReadColumns(const Format& format, Reader& reader, std::size_t count, TableLayout& table)
{
    auto& columns = table.columns;
    for (std::size_t i = 0; i < count; ++i) {
        columns.push_back(ColumnFromBlock(format, reader.Take(format.definition.column_bytes)));
        const ColumnLayout& column = columns.back();
        if (column.id >= table.columns_ever ||
            (!column.fixed && column.slot >= table.variable_slots)) {
            reader.Fail("campo con numero impossibile");
        }
    }
    for (ColumnLayout& column : columns) {
        column.name = reader.Name();
    }
    std::ranges::sort(columns, {}, &ColumnLayout::id);
    if (std::ranges::adjacent_find(columns, {}, &ColumnLayout::id) != columns.end()) {
        reader.Fail("due campi con lo stesso numero");
    }
}

RealIndex ReadRealIndex(const Format& format, Reader& reader, const TableLayout& table)
{
    const Bytes block = reader.Take(format.definition.key_bytes);
    RealIndex index;
    for (std::size_t i = 0; i < kKeyColumns; ++i) {
        const std::size_t at = format.definition.key_columns + 3 * i;
        const std::uint16_t id = U16(block, at);
        if (id == kNoColumn) {
            continue;
        }
        const auto column = std::ranges::find(table.columns, id, &ColumnLayout::id);
        if (column == table.columns.end()) {
            reader.Fail("indice su un campo che non c'è");
        }
        index.columns.push_back({static_cast<std::size_t>(column - table.columns.begin()),
                                 (block[at + 2] & kAscendingFlag) != 0});
    }
    index.root = U32(block, format.definition.key_root);
    index.map = RowPointerAt(block, format.definition.key_map);
    const std::uint8_t flags = block[format.definition.key_flags];
    index.unique = (flags & kUniqueFlag) != 0;
    index.ignore_nulls = (flags & kIgnoreNullsFlag) != 0;
    index.required = (flags & kRequiredFlag) != 0;
    return index;
}

LogicalIndex ReadLogicalIndex(const Format& format, Reader& reader, TableLayout& table)
{
    const Bytes block = reader.Take(format.definition.index_bytes);
    LogicalIndex index;
    index.real = U32(block, format.definition.index_real);
    index.primary = block[format.definition.index_kind] == kPrimaryKind;
    index.of_relation = block[format.definition.index_kind] == kRelationKind;
    if (index.real >= table.real_indexes.size()) {
        reader.Fail("indice che non c'è");
    }
    // Not every writer sets the flags of a primary key.
    table.real_indexes[index.real].unique |= index.primary;
    table.real_indexes[index.real].required |= index.primary;
    return index;
}

// Nothing but a check needs these, so a list that breaks off does not keep the table from being
// read.
void ReadLongValues(Reader& reader, TableLayout& table)
{
    constexpr std::size_t kBlockBytes = 10;
    while (reader.Left() >= kBlockBytes) {
        const Bytes block = reader.Take(kBlockBytes);
        table.long_values.push_back(
            {U16(block, 0), RowPointerAt(block, 2), RowPointerAt(block, 6)});
    }
    table.ends_well = reader.Left() == 2 && U16(reader.Take(2), 0) == kNoColumn;
}

}  // namespace

TableLayout ReadTableDefinition(PageFile& file, std::uint32_t page)
{
    const Format& format = file.Format();
    const std::vector<std::uint8_t> stream = ReadDefinitionStream(file, page);
    Reader reader(format, stream, page);
    TableLayout table;
    table.page = page;
    const Counts counts = ReadHeader(format, reader, table);
    for (std::size_t i = 0; i < counts.real_indexes; ++i) {
        reader.Take(format.definition.counter_bytes);
    }
    ReadColumns(format, reader, counts.columns, table);
    for (std::size_t i = 0; i < counts.real_indexes; ++i) {
        table.real_indexes.push_back(ReadRealIndex(format, reader, table));
    }
    for (std::size_t i = 0; i < counts.logical_indexes; ++i) {
        table.logical_indexes.push_back(ReadLogicalIndex(format, reader, table));
    }
    for (LogicalIndex& index : table.logical_indexes) {
        index.name = reader.Name();
    }
    ReadLongValues(reader, table);
    return table;
}

}  // namespace jet
