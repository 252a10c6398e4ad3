#include "tests/jet/largest_allocation.h"
#include "tests/jet/sample_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <random>

// Damaged files end in a result or in a jet::Error: never in another exception, a crash, a hang or
// an allocation out of proportion to the file.

namespace jet::test
{

namespace
{

/// Counts how often each error number came; 0 = no error.
using Outcomes = std::map<int, std::size_t>;

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

/// Opens the file and reads all there is in it, going on behind every error.
void ReadAll(const std::filesystem::path& path, Outcomes& outcomes)
{
    const auto attempt = [&](const std::function<void()>& action) {
        ++outcomes[ErrorNumberOf(action)];
    };
    attempt([&] {
        const auto database = Database::Open(path);
        for (const TableInfo& table : database->TableDefs()) {
            attempt([&] { Scan(*database, table, outcomes); });
            for (const IndexInfo& index : table.indexes) {
                attempt([&] { WalkIndex(*database, table, index); });
            }
        }
    });
}

/// What reading may end in, whatever has happened to the file.
void ExpectKnownOutcomes(const Outcomes& outcomes)
{
    for (const auto& [number, count] : outcomes) {
        // A damaged name, type or sort order may make a key, a column or a table unknown.
        const std::vector<int> known{0,
                                     kDamagedFile,
                                     kUnrecognisedFormat,
                                     kEncodedFile,
                                     kInvalidArgument,
                                     kNoCurrentRecord,
                                     kTableNotFound,
                                     kColumnNotFound,
                                     kIndexNotFound};
        EXPECT_TRUE(std::ranges::count(known, number) == 1) << number << ", times " << count;
    }
}

/// A file in a scratch folder that can be damaged and made whole again.
class Patient
{
public:
    explicit Patient(const char* sample)
        : whole_(ReadFile(Sample(sample))),
          path_(folder_.Write("patient.mdb", whole_)),
          descriptor_(::open(path_.c_str(), O_RDWR | O_CLOEXEC))
    {
    }
    ~Patient() { ::close(descriptor_); }
    Patient(const Patient&) = delete;
    Patient& operator=(const Patient&) = delete;

    const FileBytes& Whole() const { return whole_; }
    const std::filesystem::path& Path() const { return path_; }

    void Cut(std::size_t length) const
    {
        ASSERT_EQ(::ftruncate(descriptor_, static_cast<off_t>(length)), 0);
    }

    void Write(std::size_t at, const FileBytes& bytes) const
    {
        ASSERT_EQ(::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(at)),
                  static_cast<ssize_t>(bytes.size()));
    }

private:
    ScratchFolder folder_;
    FileBytes whole_;
    std::filesystem::path path_;
    int descriptor_;
};

TEST(DamagedFile, CutAtEveryPageAndManyOddLengths)
{
    for (const char* sample : {"nimbo-full-97.mdb", "nimbo-full-2000.mdb"}) {
        SCOPED_TRACE(sample);
        const Patient patient(sample);
        Outcomes outcomes;
        std::size_t length = patient.Whole().size();
        while (length > 0) {
            // A step of 509 meets page boundaries of neither size; 2048 ends every page of both.
            const std::size_t odd = (length - 1) / 509 * 509;
            const std::size_t page = (length - 1) / 2048 * 2048;
            length = std::max(odd, page);
            patient.Cut(length);
            Outcomes of_this;
            ReadAll(patient.Path(), of_this);
            const auto errors = static_cast<std::size_t>(
                std::ranges::count_if(of_this, [](const auto& entry) { return entry.first != 0; }));
            EXPECT_GT(errors, 0u) << "length " << length;
            outcomes.merge(of_this);
        }
        ExpectKnownOutcomes(outcomes);
    }
}

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

/// A place in the file; every second one among the first bytes of a page, where its structure is.
std::size_t PlaceIn(const FileBytes& file, std::mt19937& random)
{
    const std::size_t last = file.size() - 4;
    std::size_t place = random() % last;
    if (random() % 2 == 0) {
        place = place / 2048 * 2048 + random() % 96;
    }
    return std::min(place, last);
}

struct Sick {
    const char* name;
    const char* sample;
    int copies;
};

void PrintTo(const Sick& sick, std::ostream* out)
{
    *out << sick.sample;
}

class DamagedFileTest : public testing::TestWithParam<Sick>
{
};

TEST_P(DamagedFileTest, AnyBytesEndInAResultOrAnError)
{
    constexpr unsigned kSeed = 20240229;
    const Patient patient(GetParam().sample);
    std::mt19937 random(kSeed);
    Outcomes outcomes;
    ForgetLargestAllocation();
    for (int copy = 0; copy < GetParam().copies; ++copy) {
        SCOPED_TRACE("copy " + std::to_string(copy) + " of seed " + std::to_string(kSeed));
        std::vector<std::size_t> places;
        for (std::size_t i = 0; i < 1 + static_cast<std::size_t>(copy) % 4; ++i) {
            places.push_back(PlaceIn(patient.Whole(), random));
            patient.Write(places.back(), Damage(random, patient.Whole()[places.back()]));
        }
        ReadAll(patient.Path(), outcomes);
        for (const std::size_t place : places) {
            const auto from = patient.Whole().begin() + static_cast<std::ptrdiff_t>(place);
            patient.Write(place, {from, from + 4});
        }
    }
    ExpectKnownOutcomes(outcomes);
    EXPECT_GT(outcomes[0], 1000u);
    EXPECT_GT(outcomes[kDamagedFile], 100u);
    EXPECT_LE(LargestAllocation(), 3 * patient.Whole().size());

    Outcomes whole_again;
    ReadAll(patient.Path(), whole_again);
    EXPECT_EQ(whole_again.size(), 1u) << "the damage has been taken back";
    EXPECT_GT(whole_again[0], 30u);
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedFileTest,
                         testing::Values(Sick{"Base97", "nimbo-base-97.mdb", 5000},
                                         Sick{"Full97", "nimbo-full-97.mdb", 5000},
                                         Sick{"Base2000", "nimbo-base-2000.mdb", 5000},
                                         Sick{"Full2000", "nimbo-full-2000.mdb", 5000},
                                         // Long values, moved rows, trees of several levels.
                                         Sick{"Foreign2000", "nimbo-foreign-2000.mdb", 500}),
                         [](const auto& sick) { return std::string(sick.param.name); });

}  // namespace

}  // namespace jet::test
