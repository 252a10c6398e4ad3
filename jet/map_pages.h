#pragma once

#include "jet/page_file.h"

namespace jet
{

/// Gives out rows for new usage maps, one page of them after the other. Inside PageFile::Change
/// only. Errors: kDamagedFile, kDiskFull, kDiskError.
class MapPages
{
public:
    /// Begins on that page if it is one of maps; 0 = on a new one.
    MapPages(PageFile& file, std::uint32_t page) : file_(file), page_(page) {}

    /// A new map that lists nothing.
    RowPointer Add();

private:
    PageFile& file_;
    std::uint32_t page_;
};

}  // namespace jet
