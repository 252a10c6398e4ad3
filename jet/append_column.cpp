#include "jet/append_column.h"

#include "jet/definition_blocks.h"
#include "jet/definition_stream.h"
#include "jet/failure.h"
#include "jet/map_pages.h"
#include "jet/row_image.h"

namespace jet
{

namespace
{

constexpr std::size_t kEndMarkBytes = 2;

/// Where in the stream the column blocks end.
std::size_t EndOfBlocks(const Format& format, const TableLayout& table, std::size_t columns)
{
    return format.definition.counters +
           format.definition.counter_bytes * table.real_indexes.size() +
           format.definition.column_bytes * columns;
}

/// Where the names end that begin at `at`.
std::size_t EndOfNames(const Format& format, Bytes stream, std::size_t at, std::size_t names)
{
    for (; names > 0; --names) {
        at += format.unicode ? 2u + U16(stream, at) : 1u + stream[at];
    }
    return at;
}

void Insert(BlockBytes& stream, std::size_t at, const BlockBytes& block)
{
    stream.insert(stream.begin() + static_cast<std::ptrdiff_t>(at), block.begin(), block.end());
}

}  // namespace

// Everything else in the stream is carried over as it is: nothing refers to places in it.
void AppendColumn(PageFile& file, std::uint32_t definition_page, const ColumnDefinition& column)
{
    const Format& format = file.Format();
    CheckName(format, column.name);
    TableLayout table = ReadTableDefinition(file, definition_page);
    if (!table.user) {
        FailReadOnly();
    }
    const std::size_t columns = table.columns.size();
    AppendLayout(format, column, table);
    const ColumnLayout& added = table.columns.back();
    RowImage(table).Join(format);  // a row with nothing but Null must fit on a page

    BlockBytes stream = ReadDefinitionStream(file, definition_page);
    const std::size_t end = stream.size() - kEndMarkBytes;
    if (U16(stream, end) != 0xFFFF) {
        FailDamaged(definition_page, "definizione di tabella senza fine");
    }
    if (IsLong(added.type)) {
        MapPages maps(file, table.data_map.page);
        const RowPointer pages = maps.Add();
        Insert(stream, end, LongValueBlock({added.id, pages, maps.Add()}));
    }
    const std::size_t blocks = EndOfBlocks(format, table, columns);
    Insert(stream, EndOfNames(format, stream, blocks, columns), NameBlock(format, added.name));
    Insert(stream, blocks,
           ColumnBlock(format, ReadTextOrder(file.ReadHeader()), TableKind::User, added));
    const auto counts = std::span(stream).subspan(format.definition.table_kind);
    PutU16(counts, 1, table.columns_ever);
    PutU16(counts, 3, table.variable_slots);
    PutU16(counts, 5, table.columns.size());
    WriteDefinitionStream(file, definition_page, std::move(stream));
    file.NoteSchemaChange();
}

}  // namespace jet
