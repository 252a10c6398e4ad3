#pragma once

#include "jet/page_file.h"

#include <vector>

namespace jet
{

/// The numbers in a table definition that change with its rows. They are on its first page.
/// Inside PageFile::Change only. Errors: kDamagedFile, kDiskError.
class DefinitionCounters
{
public:
    DefinitionCounters(PageFile& file, std::uint32_t page);

    /// A count that is too low, as in some system tables, ends at 0.
    void AddRows(int rows);
    /// One number per real index.
    void AddDistinctKeys(const std::vector<int>& keys);
    std::int32_t NextAutonumber();

    void Write();

private:
    PageFile& file_;
    std::uint32_t number_;
    PageImage content_;
};

}  // namespace jet
