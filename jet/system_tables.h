#pragma once

#include "jet/catalog_writer.h"
#include "jet/format.h"
#include "jet/schema.h"
#include "jet/table_definition.h"

namespace jet
{

// What an empty database holds: the engine's own four tables, and their first rows.

/// In the order of their pages.
std::vector<TableDefinition> SystemTables(const Format& format);
TableLayout LayOutSystemTable(const Format& format, const TableDefinition& table);

std::vector<CatalogRow> FirstObjects(const Format& format);
std::vector<PermissionRow> FirstPermissions(const Format& format);

}  // namespace jet
