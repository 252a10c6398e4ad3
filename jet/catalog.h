#pragma once

#include "jet/page_file.h"

#include <string>
#include <vector>

namespace jet
{

struct CatalogEntry {
    std::u16string name;
    std::uint32_t page = 0;  ///< first page of the table's definition
    bool user = false;       ///< not one of the engine's own tables
};

/// The tables of the file, in the catalog's order. Linked tables are not among them.
/// Errors: kDamagedFile, kDiskError.
std::vector<CatalogEntry> ReadCatalog(PageFile& file);

}  // namespace jet
