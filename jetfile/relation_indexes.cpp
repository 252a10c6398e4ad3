#include "jetfile/relation_indexes.h"

#include "jet/definition_stream.h"
#include "jet/failure.h"

namespace jetfile
{

namespace
{

constexpr std::uint8_t kRelationKind = 2;

// In a definition the blocks of the logical indexes follow, in this order, the header, a counter
// block for each real index, the blocks and the names of the columns, and the blocks of the real
// indexes. A name has its length in bytes before it.

void SkipName(const jet::Format& format, jet::Bytes& rest)
{
    const std::size_t length_bytes = format.unicode ? 2 : 1;
    if (rest.size() < length_bytes) jet::FailDamaged("definizione di tabella incompleta");
    const std::size_t size = length_bytes + (format.unicode ? jet::U16(rest, 0) : rest[0]);
    if (rest.size() < size) jet::FailDamaged("definizione di tabella incompleta");
    rest = rest.subspan(size);
}

void Skip(std::size_t count, std::size_t block_bytes, jet::Bytes& rest)
{
    if (rest.size() < count * block_bytes) jet::FailDamaged("definizione di tabella incompleta");
    rest = rest.subspan(count * block_bytes);
}

}  // namespace

std::vector<bool> RelationIndexes(jet::PageFile& file, const jet::TableLayout& table)
{
    const auto& sizes = file.Format().definition;
    const std::vector<std::uint8_t> stream = jet::ReadDefinitionStream(file, table.page);
    jet::Bytes rest = stream;
    Skip(1, sizes.counters, rest);
    Skip(table.real_indexes.size(), sizes.counter_bytes, rest);
    Skip(table.columns.size(), sizes.column_bytes, rest);
    for (std::size_t i = 0; i < table.columns.size(); ++i) SkipName(file.Format(), rest);
    Skip(table.real_indexes.size(), sizes.key_bytes, rest);
    std::vector<bool> relations;
    for (std::size_t i = 0; i < table.logical_indexes.size(); ++i) {
        const jet::Bytes block = rest;
        Skip(1, sizes.index_bytes, rest);
        relations.push_back(block[sizes.index_kind] == kRelationKind);
    }
    return relations;
}

}  // namespace jetfile
