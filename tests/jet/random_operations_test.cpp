#include "jet/integrity_check.h"
#include "tests/jet/independent_reader.h"
#include "tests/jet/power_cut_storage.h"
#include "tests/jet/table_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

// Thousands of operations drawn from a seed, against a model in memory. After each commit a fresh
// reader must find the model's rows, in the file's order and in that of every index.

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";

TableDefinition EveryType()
{
    using enum ColumnType;
    return {u"Prova",
            {{u"Numero", Long},
             {u"Testo", Text, 60},
             {u"Lungo", Text, 255},
             {u"Logico", YesNo},
             {u"Piccolo", Byte},
             {u"Corto", Integer},
             {u"Soldi", ColumnType::Currency},
             {u"Singolo", Single},
             {u"Doppio", Double},
             {u"Giorno", ColumnType::Date},
             {u"Grezzo", ColumnType::Binary, 30},
             {u"Sigla", ColumnType::Guid},
             {u"Nota", Memo}},
            {{u"PrimaryKey", {{u"Numero"}}, true},
             {u"PerTesto", {{u"Testo"}, {u"Giorno", false}}},
             {u"AlContrario", {{u"Testo", false}, {u"Logico"}}},
             {u"Unico", {{u"Sigla", false}}, false, true},
             {u"Grezzi", {{u"Grezzo"}, {u"Corto", false}}},
             {u"Numeri", {{u"Singolo"}, {u"Doppio", false}, {u"Soldi"}, {u"Piccolo", false}}},
             {u"SenzaNull", {{u"Lungo"}}, false, false, false, true}}};
}

class RandomOperations : public testing::TestWithParam<Version>
{
protected:
    RandomOperations() : unicode_(GetParam() == Version::Jet4)
    {
        Database::Create(kName, GetParam(), storage_);
        database_ = Database::Open(kName, OpenMode::ReadWrite, storage_);
        database_->CreateTable(EveryType());
        table_ = Describe(*database_, u"Prova");
        rows_ = database_->OpenTable(u"Prova");
    }

    bool HasNumber(const Value& number) const
    {
        return std::ranges::any_of(model_, [&](const ModelRow& row) { return row[0] == number; });
    }

    /// Sets some fields; gives false when that must be refused.
    bool Fill(ModelRow& row, bool is_new)
    {
        const Value number_before = row[0];
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            if (random_() % 2 == 0 || (is_new && i == 0)) {
                row[i] = RandomValue(table_.columns[i], unicode_, random_);
                rows_->SetField(table_.columns[i].name, row[i]);
            }
        }
        return !IsNull(row[0]) && ((!is_new && row[0] == number_before) || !HasNumber(row[0]));
    }

    void Add()
    {
        ModelRow row(table_.columns.size());
        row[3] = false;
        rows_->AddNew();
        if (Fill(row, /*is_new=*/true)) {
            rows_->Update();
            model_.push_back(row);
        } else {
            ExpectRefused();
        }
    }

    void ExpectRefused()
    {
        const int error = ErrorNumberOf([&] { rows_->Update(); });
        EXPECT_TRUE(error == kNullInKey || error == kDuplicateKey) << error;
        rows_->CancelUpdate();
        ++refused_;
    }

    /// Goes to a row of the model by its number.
    std::size_t GoToAny()
    {
        const std::size_t at = random_() % model_.size();
        rows_->SetIndex(u"PrimaryKey");
        rows_->Seek({model_[at][0]});
        EXPECT_FALSE(rows_->NoMatch());
        return at;
    }

    void Change()
    {
        const std::size_t at = GoToAny();
        ModelRow row = model_[at];
        rows_->Edit();
        if (Fill(row, /*is_new=*/false)) {
            rows_->Update();
            EXPECT_EQ(rows_->Field(u"Numero"), row[0]) << "the cursor stands on the row edited";
            model_[at] = row;
        } else {
            ExpectRefused();
        }
    }

    void Remove()
    {
        const std::size_t at = GoToAny();
        rows_->Delete();
        model_.erase(model_.begin() + static_cast<std::ptrdiff_t>(at));
    }

    // Grows for a third of the time, then shrinks, then grows again.
    void DoOne(int done, int all)
    {
        const unsigned adds = done < all / 3 ? 7 : done < 2 * all / 3 ? 1 : 6;
        const auto what = random_() % 10;
        if (what < adds || model_.empty()) {
            Add();
        } else if (what < adds + (10 - adds) / 2) {
            Change();
        } else {
            Remove();
        }
    }

    void Compare()
    {
        const auto reader = Database::Open(kName, OpenMode::ReadOnly, storage_);
        ASSERT_EQ(SortedTexts(AllRows(*reader, table_)), SortedTexts(model_));
        const auto rows = reader->OpenTable(u"Prova");
        for (const IndexInfo& index : table_.indexes) {
            rows->SetIndex(index.name);
            std::size_t count = 0;
            for (; !rows->AtEof(); rows->MoveNext()) {
                ++count;
            }
            const auto in_index = [&](const ModelRow& row) {
                return index.name != u"SenzaNull" || !IsNull(row[2]);
            };
            ASSERT_EQ(count, static_cast<std::size_t>(std::ranges::count_if(model_, in_index)));
        }
        ASSERT_EQ(CheckIntegrity(kName, storage_), std::vector<std::string>{});
    }

    bool unicode_;
    PowerCutStorage storage_;
    std::unique_ptr<Database> database_;
    TableInfo table_;
    std::unique_ptr<Recordset> rows_;
    std::vector<ModelRow> model_;
    std::mt19937 random_{20260101};
    int refused_ = 0;
};

TEST_P(RandomOperations, FreshReaderFindsTheModelAfterEachCommit)
{
    constexpr int kBatches = 120;
    constexpr int kOperations = 60;
    for (int batch = 0; batch < kBatches; ++batch) {
        SCOPED_TRACE("batch " + std::to_string(batch) + " of seed 20260101");
        database_->BeginTrans();
        const std::vector<ModelRow> before = model_;
        for (int i = 0; i < kOperations; ++i) {
            DoOne(batch * kOperations + i, kBatches * kOperations);
        }
        if (random_() % 5 == 0) {
            database_->Rollback();
            model_ = before;
        } else {
            database_->CommitTrans();
        }
        if (batch % 4 == 0 || batch + 1 == kBatches) {
            ASSERT_NO_FATAL_FAILURE(Compare());
        }
    }
    EXPECT_GT(refused_, 20);
    EXPECT_GT(model_.size(), 50u);

    const ScratchFolder folder;
    const auto path = folder.Write(kName, storage_.Content(kName));
    const auto reader = Database::Open(path);
    EXPECT_EQ(CompareWithExport(path, table_, *reader->OpenTable(u"Prova"), /*same_order=*/false),
              model_.size() * table_.columns.size());
}

INSTANTIATE_TEST_SUITE_P(Versions, RandomOperations, testing::Values(Version::Jet3, Version::Jet4),
                         [](const auto& version) {
                             return version.param == Version::Jet3 ? "Jet3" : "Jet4";
                         });

/// Rows as mdb-export, a reader of other people, counts and writes them.
std::vector<std::string> ExportedLines(const std::filesystem::path& file, const char* table)
{
    const std::string command = "mdb-export -H -Q '" + file.string() + "' " + table;
    std::FILE* pipe = ::popen(command.c_str(), "r");
    std::vector<std::string> lines;
    std::array<char, 512> line{};
    while (pipe != nullptr && std::fgets(line.data(), line.size(), pipe) != nullptr) {
        lines.emplace_back(line.data());
    }
    EXPECT_EQ(pipe != nullptr ? ::pclose(pipe) : -1, 0);
    std::ranges::sort(lines);
    return lines;
}

class ManyRows : public testing::TestWithParam<Version>
{
};

// Splits of leaves and nodes at the end, in the middle and at the start of the trees.
TEST_P(ManyRows, FiveThousandRowsWithFourIndexesAreReadByOthers)
{
    constexpr int kRows = 5000;
    PowerCutStorage storage;
    Database::Create(kName, GetParam(), storage);
    {
        const auto database = Database::Open(kName, OpenMode::ReadWrite, storage);
        using enum ColumnType;
        database->CreateTable(
            {u"Prova",
             {{u"Numero", Long}, {u"Mescolato", Long}, {u"Testo", ColumnType::Text, 40}},
             {{u"PrimaryKey", {{u"Numero"}}, true},
              {u"AlContrario", {{u"Numero", false}}},
              {u"Mescolati", {{u"Mescolato"}}, false, true},
              {u"Testi", {{u"Testo"}, {u"Numero"}}}}});
        const auto rows = database->OpenTable(u"Prova");
        database->BeginTrans();
        for (std::int32_t i = 0; i < kRows; ++i) {
            rows->AddNew();
            rows->SetField(u"Numero", i);
            rows->SetField(u"Mescolato", i * 1103 % kRows);
            rows->SetField(u"Testo", std::u16string(static_cast<std::size_t>(i % 30), u'm') + u"x");
            rows->Update();
        }
        database->CommitTrans();
    }
    ASSERT_EQ(CheckIntegrity(kName, storage), std::vector<std::string>{});

    std::vector<std::string> expected;
    for (int i = 0; i < kRows; ++i) {
        expected.push_back(std::to_string(i) + "," + std::to_string(i * 1103 % kRows) + "," +
                           std::string(static_cast<std::size_t>(i % 30), 'm') + "x\n");
    }
    std::ranges::sort(expected);
    const ScratchFolder folder;
    EXPECT_EQ(ExportedLines(folder.Write(kName, storage.Content(kName)), "Prova"), expected);

    // Every second row, then all of them: leaves, nodes and the levels of the trees go away.
    const auto database = Database::Open(kName, OpenMode::ReadWrite, storage);
    const auto rows = database->OpenTable(u"Prova");
    rows->SetIndex(u"Mescolati");
    for (const int keep : {2, 1}) {
        database->BeginTrans();
        int at = 0;
        for (rows->MoveFirst(); !rows->AtEof(); rows->MoveNext()) {
            if (++at % keep == 0) {
                rows->Delete();
            }
        }
        database->CommitTrans();
        ASSERT_EQ(CheckIntegrity(kName, storage), std::vector<std::string>{});
        EXPECT_EQ(rows->RecordCount(), keep == 2 ? std::size_t{kRows} / 2 : 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Versions, ManyRows, testing::Values(Version::Jet3, Version::Jet4),
                         [](const auto& version) {
                             return version.param == Version::Jet3 ? "Jet3" : "Jet4";
                         });

}  // namespace

}  // namespace jet::test
