#include "jet/create_database.h"

#include "jet/catalog_writer.h"
#include "jet/create_table.h"
#include "jet/data_page_writer.h"
#include "jet/definition_stream.h"
#include "jet/failure.h"
#include "jet/header.h"
#include "jet/map_pages.h"
#include "jet/system_tables.h"

#include <cerrno>

namespace jet
{

namespace
{

/// Header, map of free pages and the four definitions.
constexpr std::uint32_t kFirstPages = 6;

// Row 0 is the map of free pages, where pages beyond the end of the file count as free; row 1 lists
// nothing.
PageImage GlobalMapPage(const Format& format)
{
    PageImage page = DataPageWriter::Empty(format, 1);
    PageImage map(format.map_row_bytes, 0xFF);
    PutU32(map, 0, 0);
    map[4] = 0;
    map[5] = static_cast<std::uint8_t>(0xFF << kFirstPages);
    DataPageWriter writer(format, Page(1, std::make_shared<PageImage>(std::move(page))));
    writer.Add(map, RowState::Live);
    writer.Add(PageImage(format.map_row_bytes, 0), RowState::Live);
    return writer.Take();
}

void WriteFirstPages(StoredFile& file, Version version)
{
    const Format& format = version == Version::Jet3 ? kJet3 : kJet4;
    file.Write(0, NewHeaderPage(format));
    file.Write(format.page_bytes, GlobalMapPage(format));
    for (std::uint32_t page = kObjectsPage; page < kFirstPages; ++page) {
        file.Write(page * format.page_bytes, EmptyDefinitionPage(format));
    }
    file.Sync();
}

void WriteSystemTables(PageFile& file)
{
    MapPages maps(file, 0);
    std::uint32_t page = kObjectsPage;
    for (const TableDefinition& table : SystemTables(file.Format())) {
        WriteNewDefinition(file, page++, TableKind::System, LayOutSystemTable(file.Format(), table),
                           maps);
    }
    for (const CatalogRow& object : FirstObjects(file.Format())) {
        AddObject(file, object);
    }
    for (const PermissionRow& permission : FirstPermissions(file.Format())) {
        AddPermission(file, permission);
    }
}

}  // namespace

// A journal left by an earlier file of this name must not be taken for one of the new file.
void CreateDatabase(Storage& storage, const std::filesystem::path& path, Version version)
{
    if (storage.Exists(path)) {
        FailCreate(path, EEXIST);
    }
    std::filesystem::path unfinished = path;
    unfinished += "-nuovo";
    storage.Remove(unfinished);
    storage.Remove(JournalNameFor(unfinished));
    WriteFirstPages(*storage.Create(unfinished), version);
    {
        PageFile file(unfinished, OpenMode::ReadWrite, storage);
        file.Change([&] { WriteSystemTables(file); });
    }
    storage.Remove(JournalNameFor(path));
    storage.Rename(unfinished, path);
    storage.SyncFolderOf(path);
}

}  // namespace jet
