#include "tests/jet/damaged_file.h"

#include "jet/integrity_check.h"
#include "tests/jet/table_model.h"

#include <algorithm>
#include <ctime>
#include <stdexcept>

namespace jet::test
{

namespace
{

// In a folder that is not there, so that no search for the name in another case takes time.
constexpr const char* kName = "/nowhere/nimbo.mdb";

/// Numbers that stand where a count, an offset or a page number is wrong by much or by little.
FileBytes Damage(std::mt19937& random, std::uint8_t before)
{
    switch (random() % 6) {
        case 0:
            return {0x00};
        case 1:
            return {0xFF};
        case 2:
            return {0xFF, 0xFF};
        case 3:
            return {static_cast<std::uint8_t>(before + 1)};
        case 4:
            return {static_cast<std::uint8_t>(before ^ 1u << random() % 8)};
        default:
            return {static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random()),
                    static_cast<std::uint8_t>(random() % 4), 0};
    }
}

/// Every second place lies among the first bytes of a page, where its structure is.
FileBytes DamagedCopy(const FileBytes& whole, std::mt19937& random)
{
    constexpr std::size_t kSmallestPage = 2048;
    constexpr std::size_t kStructure = 96;
    constexpr unsigned kMostPlaces = 4;
    FileBytes copy = whole;
    const std::size_t last = whole.size() - 4;
    for (std::size_t places = 1 + random() % kMostPlaces; places > 0; --places) {
        std::size_t place = random() % last;
        if (random() % 2 == 0) {
            place = place / kSmallestPage * kSmallestPage + random() % kStructure;
        }
        place = std::min(place, last);
        std::ranges::copy(Damage(random, copy[place]),
                          copy.begin() + static_cast<std::ptrdiff_t>(place));
    }
    return copy;
}

/// What this process has used so far, however busy the machine is with others.
double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void ReadFields(Recordset& rows, const TableInfo& table, Outcomes& outcomes)
{
    for (const ColumnInfo& column : table.columns) {
        ++outcomes[ErrorNumberOf([&] { rows.Field(column.name); })];
    }
}

void Scan(Database& database, const TableInfo& table, Outcomes& outcomes)
{
    const auto rows = database.OpenTable(table.name);
    rows->RecordCount();
    for (; !rows->AtEof(); rows->MoveNext()) {
        ReadFields(*rows, table, outcomes);
    }
}

void WalkIndex(Database& database, const TableInfo& table, const IndexInfo& index)
{
    const auto rows = database.OpenTable(table.name);
    rows->SetIndex(index.name);
    while (!rows->AtEof()) {
        rows->MoveNext();
    }
    for (rows->MoveLast(); !rows->AtBof();) {
        rows->MovePrevious();
    }
    rows->MoveFirst();
    std::vector<Value> key;
    for (const auto& column : index.columns) {
        key.push_back(rows->Field(column));
    }
    rows->Seek(key);
}

bool CanBeSet(const ColumnInfo& column)
{
    const bool is_long = column.type == ColumnType::Memo || column.type == ColumnType::Ole;
    return !is_long && column.type != ColumnType::Numeric;
}

void Fill(Recordset& rows, const TableInfo& table, std::mt19937& random)
{
    for (const ColumnInfo& column : table.columns) {
        // A column that refuses (an autonumber, a damaged one) is not the end of the change.
        if (CanBeSet(column)) {
            ErrorNumberOf([&] {
                rows.SetField(column.name, RandomValue(column, /*unicode=*/false, random));
            });
        }
    }
    rows.Update();
}

void FillAppended(Recordset& rows)
{
    rows.MoveFirst();
    rows.Edit();
    rows.SetField(u"Nuova", Text(u"dopo l'aggiornamento"));
    rows.Update();
}

using Change = std::function<void()>;

/// One of the changes of ChangeAll, or two that belong together.
std::vector<Change> SomeChange(Database& database, Recordset& rows, const TableInfo& table,
                               std::mt19937& random)
{
    switch (random() % 6) {
        case 0:
            return {[&] { rows.MoveLast(), rows.Delete(); }};
        case 1:
            return {[&] { database.AppendColumn(table.name, {u"Nuova", ColumnType::Memo}); }};
        case 2:
            return {[&] {
                        database.AppendColumn(table.name, {u"Nuova", ColumnType::Text, 20});
                    },
                    [&] { FillAppended(rows); }};
        case 3:
            return {[&] {
                database.CreateTable(
                    {u"Nuova", {{u"Uno", ColumnType::Long}}, {{u"P", {{u"Uno"}}, true}}});
            }};
        case 4:
            return {[&] { rows.AddNew(), Fill(rows, table, random); }};
        default:
            return {[&] { rows.Edit(), Fill(rows, table, random); }};
    }
}

/// The number of its error. In a transaction that is committed all the same, so that whatever a
/// refused change has left in memory gets into the file.
int Committed(Database& database, const Change& change)
{
    database.BeginTrans();
    const int error = ErrorNumberOf(change);
    database.CommitTrans();
    return error;
}

}  // namespace

void ReadAll(const FileBytes& file, Outcomes& outcomes)
{
    const auto attempt = [&](const std::function<void()>& action) {
        ++outcomes[ErrorNumberOf(action)];
    };
    MemoryStorage storage;
    storage.Put(kName, file);
    attempt([&] {
        const auto database = Database::Open(kName, OpenMode::ReadOnly, storage);
        for (const TableInfo& table : database->TableDefs()) {
            attempt([&] { Scan(*database, table, outcomes); });
            for (const IndexInfo& index : table.indexes) {
                attempt([&] { WalkIndex(*database, table, index); });
            }
        }
    });
}

FileBytes ChangeAll(const FileBytes& file, std::mt19937& random, Outcomes& outcomes)
{
    MemoryStorage storage;
    storage.Put(kName, file);
    ++outcomes[ErrorNumberOf([&] {
        const auto database = Database::Open(kName, OpenMode::ReadWrite, storage);
        for (const TableInfo& table : database->TableDefs()) {
            ++outcomes[ErrorNumberOf([&] {
                const auto rows = database->OpenTable(table.name);
                for (const Change& change : SomeChange(*database, *rows, table, random)) {
                    const FileBytes before = storage.At(kName);
                    const int error = Committed(*database, change);
                    ++outcomes[error];
                    if (error != 0 && storage.At(kName) != before) {
                        throw std::logic_error("a change refused with " + std::to_string(error) +
                                               " has changed the file");
                    }
                }
            })];
        }
    })];
    return storage.At(kName);
}

double ForDamagedCopies(const FileBytes& whole, int copies, unsigned seed,
                        const std::function<void(const FileBytes&, std::mt19937&)>& action)
{
    std::mt19937 random(seed);
    double longest = 0;
    for (int copy = 0; copy < copies; ++copy) {
        const FileBytes damaged = DamagedCopy(whole, random);
        const double begin = ProcessorSeconds();
        try {
            action(damaged, random);
        } catch (const std::exception& error) {
            throw std::runtime_error("copy " + std::to_string(copy) + ": " + error.what());
        }
        longest = std::max(longest, ProcessorSeconds() - begin);
    }
    return longest;
}

std::vector<std::string> Findings(const FileBytes& file, Outcomes& outcomes)
{
    MemoryStorage storage;
    storage.Put(kName, file);
    std::vector<std::string> findings;
    ++outcomes[ErrorNumberOf([&] { findings = CheckIntegrity(kName, storage); })];
    return findings;
}

}  // namespace jet::test
