#include "jet/integrity_check.h"

#include "jet/catalog.h"
#include "jet/integrity_report.h"
#include "jet/utf8.h"

namespace jet
{

std::vector<std::string> CheckIntegrity(const std::filesystem::path& path, Storage& storage)
{
    PageFile file(path, OpenMode::ReadOnly, storage);
    IntegrityReport report(file);
    report.Own(0, "intestazione");
    report.Own(1, "mappa delle pagine libere");
    report.CheckRowPage(1, "mappa delle pagine libere");
    report.Try("catalogo", [&] {
        std::set<std::uint32_t> pages;
        for (const CatalogEntry& table : ReadCatalog(file)) {
            const std::string name = "tabella \"" + ToUtf8(table.name) + "\"";
            if (!pages.insert(table.page).second) {
                report.Find(name + ": la sua definizione è anche quella di un'altra tabella.");
                continue;
            }
            report.Try(name, [&] { CheckTable(report, table.page, name); });
        }
    });
    report.CheckFreePages();
    return report.Take();
}

}  // namespace jet
