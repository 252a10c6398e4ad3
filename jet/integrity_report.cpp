#include "jet/integrity_report.h"

#include "jet/data_page_writer.h"
#include "jet/map_bits.h"
#include "jet/usage_map.h"

namespace jet
{

namespace
{

constexpr RowPointer kGlobalMap{1, 0};
constexpr std::size_t kFreeSpace = 2;

std::string PageName(std::uint32_t page)
{
    return "pagina " + std::to_string(page);
}

}  // namespace

void IntegrityReport::Try(const std::string& what, const std::function<void()>& look)
{
    try {
        look();
    } catch (const Error& error) {
        Find(what + ": " + error.what());
    }
}

void IntegrityReport::Own(std::uint32_t page, const std::string& owner)
{
    if (page >= file_.PageCount()) {
        Find(owner + ": " + PageName(page) + " oltre la fine del file.");
        return;
    }
    const auto [entry, is_first] = owners_.emplace(page, owner);
    if (!is_first) {
        Find(PageName(page) + " appartiene a " + entry->second + " e a " + owner + ".");
    }
}

std::vector<std::uint32_t> IntegrityReport::ListedIn(RowPointer map, const std::string& user)
{
    if (map.page == 0) {
        return {};
    }
    const auto [entry, is_first] = maps_.emplace(Place{map.page, map.row}, user);
    if (!is_first) {
        Find(entry->second + " e " + user + " usano la stessa mappa di pagine.");
    }
    if (map_pages_.insert(map.page).second && map.page != kGlobalMap.page) {
        Own(map.page, "mappe delle pagine");
        CheckRowPage(map.page, "mappe delle pagine");
    }
    std::vector<std::uint32_t> pages;
    Try(user, [&] {
        for (const std::uint32_t bitmap : BitmapPagesOf(file_, map)) {
            Own(bitmap, user);
        }
        pages = ReadUsageMap(file_, map);
    });
    return pages;
}

std::vector<std::uint32_t> IntegrityReport::OwnedBy(RowPointer map, const std::string& owner)
{
    std::vector<std::uint32_t> pages = ListedIn(map, owner);
    for (const std::uint32_t page : pages) {
        Own(page, owner);
    }
    return pages;
}

void IntegrityReport::UseLongValueRow(RowPointer row, const std::string& user)
{
    const auto [entry, is_first] = long_values_.emplace(Place{row.page, row.row}, user);
    if (!is_first) {
        Find(entry->second + " e " + user + " usano lo stesso valore lungo.");
    }
}

void IntegrityReport::CheckRowPage(std::uint32_t page, const std::string& owner)
{
    Try(owner, [&] {
        const Page content = file_.Read(page);
        const DataPageWriter rows(file_.Format(), content);
        if (rows.FreeSpace() != U16(content.Content(), kFreeSpace)) {
            Find(owner + ": spazio libero sbagliato, " + PageName(page) + ".");
        }
    });
}

void IntegrityReport::CheckFreePages()
{
    Try("mappa delle pagine libere", [&] {
        const MapBits bits(file_, kGlobalMap);
        if (!bits.Inline()) {
            for (const std::uint32_t bitmap : BitmapPagesOf(file_, kGlobalMap)) {
                Own(bitmap, "mappa delle pagine libere");
            }
        }
        for (const auto& [page, owner] : owners_) {
            const auto bit = bits.Find(page);
            if (bit && TestBit(file_, *bit)) {
                Find(PageName(page) + " è in uso da " + owner + " ma segnata libera.");
            }
        }
    });
}

}  // namespace jet
