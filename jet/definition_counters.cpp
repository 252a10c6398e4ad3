#include "jet/definition_counters.h"

#include "jet/failure.h"

#include <algorithm>
#include <utility>

// The layout is that of table_definition.cpp.

namespace jet
{

DefinitionCounters::DefinitionCounters(PageFile& file, std::uint32_t page)
    : file_(file), number_(page)
{
    const Page source = file.Read(page);
    content_.assign(source.Content().begin(), source.Content().end());
}

void DefinitionCounters::AddRows(int rows)
{
    const std::size_t at = file_.Format().definition.rows;
    const std::int64_t sum = std::int64_t{U32(content_, at)} + rows;
    PutU32(content_, at, static_cast<std::uint32_t>(std::max<std::int64_t>(sum, 0)));
}

void DefinitionCounters::AddDistinctKeys(const std::vector<int>& keys)
{
    const auto& layout = file_.Format().definition;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::size_t at = layout.counters + layout.counter_bytes * i + layout.distinct_keys;
        if (at + 4 > content_.size()) {
            FailDamaged(number_, "numero di indici impossibile");
        }
        PutU32(content_, at, U32(content_, at) + static_cast<std::uint32_t>(keys[i]));
    }
}

std::int32_t DefinitionCounters::NextAutonumber()
{
    const std::size_t at = file_.Format().definition.autonumber;
    const std::uint32_t next = U32(content_, at) + 1;
    PutU32(content_, at, next);
    return static_cast<std::int32_t>(next);
}

void DefinitionCounters::Write()
{
    file_.Write(number_, std::move(content_));
}

}  // namespace jet
