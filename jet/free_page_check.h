#pragma once

#include "jet/catalog.h"

namespace jet
{

/// Refuses a file in which a page that belongs to a table counts as free: a change could write over
/// it. Looks at definitions and maps, not at the rows. Errors: kDamagedFile, kDiskError.
void CheckNoUsedPageIsFree(PageFile& file, const std::vector<CatalogEntry>& catalog);

}  // namespace jet
