#include "jet/index_node.h"
#include "jet/index_tree.h"
#include "jet/integrity_report.h"
#include "jet/row_keys.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr std::size_t kFreeSpace = 2;
constexpr std::size_t kMostLevels = 24;

class IndexCheck
{
public:
    IndexCheck(IntegrityReport& report, const Table& table, const RealIndex& index,
               std::string name)
        : report_(report), table_(table), index_(index), name_(std::move(name))
    {
    }

    void Run(const std::vector<RowPointer>& homes)
    {
        const auto pages = report_.OwnedBy(index_.map, name_);
        Walk(index_.root, 0);
        std::ranges::sort(visited_);
        if (visited_ != pages) {
            Find("la mappa non elenca le pagine dell'albero");
        }
        for (const auto& [level, last] : last_of_level_) {
            if (last.next != 0) {
                Find("l'ultima pagina di un livello ne indica un'altra");
            }
        }
        if (!std::ranges::is_sorted(entries_)) {
            Find("le voci non sono in ordine");
        }
        CheckOutlivedKeys(homes);
        CompareWithRows(homes);
    }

private:
    void Find(const std::string& what) { report_.Find(name_ + ": " + what + "."); }

    /// Gives the last entry below the page.
    KeyBytes Walk(std::uint32_t page, std::size_t depth)
    {
        if (depth == kMostLevels || std::ranges::count(visited_, page) > 0) {
            Find("l'albero non finisce");
            return {};
        }
        visited_.push_back(page);
        const IndexNode node = LoadIndexNode(report_.File(), page, table_.Definition().page);
        CheckPage(node);
        CheckLinks(node, depth);
        if (node.leaf) {
            return WalkLeaf(node, depth);
        }
        for (const IndexEntry& entry : node.entries) {
            if (Walk(entry.child, depth + 1) != entry.bytes) {
                outlived_.push_back({entry.bytes, entries_.size()});
            }
        }
        return Walk(node.tail, depth + 1);
    }

    KeyBytes WalkLeaf(const IndexNode& node, std::size_t depth)
    {
        if (!leaf_depth_) {
            leaf_depth_ = depth;
        }
        if (*leaf_depth_ != depth) {
            Find("foglie a profondità diverse");
        }
        for (const IndexEntry& entry : node.entries) {
            entries_.push_back(entry.bytes);
        }
        return node.entries.empty() ? KeyBytes{} : node.entries.back().bytes;
    }

    // Other writers leave the entry in the node when they erase it from the leaf, and leave leaves
    // that have become empty. Searches find their way as long as it lies between its neighbours.
    void CheckOutlivedKeys(const std::vector<RowPointer>& homes)
    {
        for (const auto& [entry, behind] : outlived_) {
            const bool after_last = behind == 0 || entries_[behind - 1] < entry;
            const bool before_next = behind == entries_.size() || entry < entries_[behind];
            if (!after_last || !before_next ||
                std::ranges::find(homes, RowOfEntry(entry)) != homes.end()) {
                Find("un nodo non ripete l'ultima voce della pagina sotto di sé");
            }
        }
    }

    void CheckPage(const IndexNode& node)
    {
        const Page page = report_.File().Read(node.number);
        const IndexPage stored(report_.File().Format(), page, table_.Definition().page);
        if (stored.UsedBytes() + U16(page.Content(), kFreeSpace) !=
            IndexPageRoom(report_.File().Format())) {
            Find("spazio libero sbagliato, pagina " + std::to_string(node.number));
        }
    }

    void CheckLinks(const IndexNode& node, std::size_t depth)
    {
        const auto before = last_of_level_.find(depth);
        const bool first = before == last_of_level_.end();
        if (node.previous != (first ? 0 : before->second.page) ||
            (!first && before->second.next != node.number)) {
            Find("pagine dello stesso livello non collegate");
        }
        last_of_level_[depth] = {node.number, node.next};
    }

    void CompareWithRows(const std::vector<RowPointer>& homes)
    {
        std::vector<KeyBytes> expected;
        std::vector<KeyBytes> keys;
        for (const RowPointer home : homes) {
            const RowKey key =
                KeyOfRow(report_.File(), table_.Definition(), index_, table_.ReadRow(home));
            if (index_.required && key.any_null) {
                Find("Null dove non è ammesso");
            }
            if (!IsListed(index_, key)) {
                continue;
            }
            const bool built = key.result == KeyResult::Built;
            if (const auto entry =
                    built ? std::optional(LeafEntry(key.bytes, home)) : EntryOf(home)) {
                expected.push_back(*entry);
            }
            if (built && index_.unique && !key.any_null) {
                keys.push_back(key.bytes);
            }
        }
        std::ranges::sort(expected);
        if (expected != entries_) {
            Find(std::to_string(entries_.size()) + " voci che non sono quelle delle " +
                 std::to_string(expected.size()) + " righe");
        }
        std::ranges::sort(keys);
        if (std::ranges::adjacent_find(keys) != keys.end()) {
            Find("valori doppi dove non sono ammessi");
        }
    }

    /// The entry of a row whose key cannot be built here: only its pointer tells.
    std::optional<KeyBytes> EntryOf(RowPointer home)
    {
        const auto found = std::ranges::find_if(
            entries_, [&](const KeyBytes& entry) { return RowOfEntry(entry) == home; });
        if (found == entries_.end()) {
            Find("manca una riga");
            return std::nullopt;
        }
        return *found;
    }

    struct OutlivedKey {
        KeyBytes entry;          // of a node
        std::size_t behind = 0;  // number of entries of leaves up to its child's last
    };

    struct Linked {
        std::uint32_t page = 0;
        std::uint32_t next = 0;
    };

    IntegrityReport& report_;
    const Table& table_;
    const RealIndex& index_;
    std::string name_;
    std::vector<std::uint32_t> visited_;
    std::vector<KeyBytes> entries_;
    std::vector<OutlivedKey> outlived_;
    std::map<std::size_t, Linked> last_of_level_;
    std::optional<std::size_t> leaf_depth_;
};

}  // namespace

void CheckIndex(IntegrityReport& report, const Table& table, const RealIndex& index,
                const std::vector<RowPointer>& homes, const std::string& name)
{
    IndexCheck(report, table, index, name).Run(homes);
}

}  // namespace jet
