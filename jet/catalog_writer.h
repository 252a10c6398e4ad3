#pragma once

#include "jet/page_file.h"
#include "jet/value.h"

#include <string_view>

namespace jet
{

/// A row of the table of objects, MSysObjects.
struct CatalogRow {
    std::int32_t id = 0;
    std::int32_t parent = 0;
    std::u16string_view name;
    std::int32_t type = 0;
    std::uint32_t flags = 0;
    Binary owner;
};

/// A row of the table of permissions, MSysACEs.
struct PermissionRow {
    std::int32_t object = 0;
    Binary user;
    std::int32_t rights = 0;
    bool inheritable = false;
};

// Inside PageFile::Change only. Errors: those of TableWriter.

void AddObject(PageFile& file, const CatalogRow& row);
void AddPermission(PageFile& file, const PermissionRow& row);

/// Enters a user's table with the permissions that a new one has: owner and users are copied from
/// what is in the file, because nobody else's security ids can be made. Errors: kTableExists, also
/// for a query of that name; kDamagedFile when the file has nobody to copy.
void AddTableToCatalog(PageFile& file, std::uint32_t page, std::u16string_view name);

/// Page of the definition, as the number is the same in every file.
inline constexpr std::uint32_t kObjectsPage = 2;
inline constexpr std::uint32_t kPermissionsPage = 3;

/// Id of the container of all tables.
inline constexpr std::int32_t kTablesContainer = 0x0F000001;

}  // namespace jet
