#pragma once

#include "jet/page_file.h"

namespace jet
{

/// Takes pages from the map of free pages of the whole file and gives them back. Inside
/// PageFile::Change only. Errors: kDamagedFile, kDiskFull, kDiskError.
class PageAllocator
{
public:
    explicit PageAllocator(PageFile& file) : file_(file) {}

    /// The free page with the lowest number, else a new one at the end of the file.
    std::uint32_t Allocate(PageImage content);
    void Free(std::uint32_t page);

private:
    PageFile& file_;
};

}  // namespace jet
