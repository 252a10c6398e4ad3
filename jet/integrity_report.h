#pragma once

#include "jet/page_file.h"
#include "jet/table.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace jet
{

/// What an integrity check has seen so far.
class IntegrityReport
{
public:
    explicit IntegrityReport(PageFile& file) : file_(file) {}

    PageFile& File() const { return file_; }

    void Find(std::string finding) { findings_.push_back(std::move(finding)); }
    /// An error that `look` ends in becomes a finding about `what`.
    void Try(const std::string& what, const std::function<void()>& look);

    /// A page belongs to somebody: it must be in the file, and nobody else's.
    void Own(std::uint32_t page, const std::string& owner);
    /// The pages of a usage map, each owned. Only one may use a map.
    std::vector<std::uint32_t> OwnedBy(RowPointer map, const std::string& owner);
    /// The pages of a usage map that repeats what another one owns.
    std::vector<std::uint32_t> ListedIn(RowPointer map, const std::string& user);
    /// The row of a long value, which only one value may use.
    void UseLongValueRow(RowPointer row, const std::string& user);
    /// The free-space field and the directory of a page of rows.
    void CheckRowPage(std::uint32_t page, const std::string& owner);

    /// To be asked at the end: no page is both owned and free.
    void CheckFreePages();

    std::vector<std::string> Take() { return std::move(findings_); }

private:
    using Place = std::pair<std::uint32_t, std::uint16_t>;

    PageFile& file_;
    std::vector<std::string> findings_;
    std::map<std::uint32_t, std::string> owners_;
    std::set<std::uint32_t> map_pages_;
    std::map<Place, std::string> maps_;
    std::map<Place, std::string> long_values_;
};

/// Rows, long values, counters and indexes of one table. `name` for the findings.
void CheckTable(IntegrityReport& report, std::uint32_t definition_page, const std::string& name);

/// One index against the rows at those homes.
void CheckIndex(IntegrityReport& report, const Table& table, const RealIndex& index,
                const std::vector<RowPointer>& homes, const std::string& name);

}  // namespace jet
