#include "jet/integrity_check.h"
#include "tests/jet/power_cut_storage.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

// What the check takes for sound although this engine does not write it.

namespace jet::test
{

namespace
{

constexpr std::size_t kPage = 4096;
constexpr std::size_t kEntries = 480;

std::vector<std::string> Findings(const FileBytes& bytes)
{
    PowerCutStorage storage;
    storage.Put("nimbo.mdb", bytes);
    return CheckIntegrity("nimbo.mdb", storage);
}

/// Bytes of the first entry of an index page.
std::size_t FirstEntryBytes(const FileBytes& file, std::size_t page)
{
    std::size_t end = 0;
    while ((file[page + 27 + end / 8] >> end % 8 & 1) == 0) {
        ++end;
    }
    return end;
}

/// Where the nodes are that some index uses; a free page keeps its old content.
std::vector<std::size_t> NodesInUse(const FileBytes& file)
{
    std::vector<std::size_t> nodes;
    for (std::size_t page = 0; page < file.size(); page += kPage) {
        FileBytes lower = file;
        lower[page + kEntries + 1] = 0;
        if (file[page] == 3 && !Findings(lower).empty()) {
            nodes.push_back(page);
        }
    }
    return nodes;
}

// Other writers erase the last entry of a leaf and leave it in the node above.
TEST(Integrity, NodeMayRepeatAnEntryThatItsChildHasLost)
{
    const FileBytes sound = ReadFile(Sample("nimbo-foreign-2000.mdb"));
    int accepted = 0;
    for (const std::size_t page : NodesInUse(sound)) {
        FileBytes outlived = sound;
        outlived[page + kEntries + FirstEntryBytes(sound, page) - 5] = 0xFE;  // no such row
        accepted += Findings(outlived).empty() ? 1 : 0;  // not where equal keys follow
        outlived[page + kEntries + 1] = 0xFF;
        EXPECT_NE(Findings(outlived), std::vector<std::string>{}) << "behind the next, " << page;
    }
    EXPECT_GT(accepted, 0);
}

}  // namespace

}  // namespace jet::test
