#include "jet/database.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>

// Changes that are safe on the disk, against what the disk itself takes for that; and tables larger
// than an office has, against mdb-export in the same run.

namespace
{

constexpr int kManyRows = 100'000;

/// A folder on the disk of the build, not in memory.
std::filesystem::path Folder()
{
    static const auto folder = [] {
        auto path = std::filesystem::current_path() / "jet-benchmark";
        std::filesystem::remove_all(path);
        std::filesystem::create_directories(path);
        return path;
    }();
    return folder;
}

std::filesystem::path CopyOf(const char* sample)
{
    auto path = Folder() / sample;
    std::filesystem::copy_file(std::filesystem::path(SAMPLE_FOLDER) / sample, path,
                               std::filesystem::copy_options::overwrite_existing);
    return path;
}

void AddRows(jet::Recordset& rows, std::int32_t count)
{
    for (std::int32_t i = 0; i < count; ++i) {
        rows.AddNew();
        rows.SetField(u"Numero", i);
        rows.SetField(u"Badge", i * 7919 % 10007);
        rows.SetField(u"Quando", jet::Date{45000 + i / 1440.0});
        rows.SetField(u"Nome",
                      std::u16string(u"Dipendente ") + static_cast<char16_t>(u'A' + i % 26));
        rows.Update();
    }
}

void CreateMany(jet::Database& database)
{
    using enum jet::ColumnType;
    database.CreateTable(
        {u"Timbrature",
         {{u"Numero", Long}, {u"Badge", Long}, {u"Quando", Date}, {u"Nome", Text, 40}},
         {{u"PrimaryKey", {{u"Numero"}}, true}, {u"PerBadge", {{u"Badge"}}}}});
}

const std::filesystem::path& ManyRows()
{
    static const auto path = [] {
        auto file = Folder() / "grande.mdb";
        jet::Database::Create(file, jet::Version::Jet4);
        const auto database = jet::Database::Open(file, jet::OpenMode::ReadWrite);
        CreateMany(*database);
        database->BeginTrans();
        AddRows(*database->OpenTable(u"Timbrature"), kManyRows);
        database->CommitTrans();
        return file;
    }();
    return path;
}

void TwoSyncedWrites(benchmark::State& state)
{
    const auto path = Folder() / "scritture";
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const std::array<char, 4096> page{};
    for ([[maybe_unused]] auto iteration : state) {
        for (int i = 0; i < 2; ++i) {
            if (::pwrite(descriptor, page.data(), page.size(), 0) < 0 || ::fsync(descriptor) != 0) {
                state.SkipWithError("the disk fails");
            }
        }
    }
    ::close(descriptor);
}
BENCHMARK(TwoSyncedWrites)->Unit(benchmark::kMicrosecond)->UseRealTime();

void EditOneRow(benchmark::State& state)
{
    const auto database =
        jet::Database::Open(CopyOf("nimbo-32-2003.mdb"), jet::OpenMode::ReadWrite);
    const auto rows = database->OpenTable(u"TERMINALI");
    std::int32_t speed = 0;
    for ([[maybe_unused]] auto iteration : state) {
        rows->Edit();
        rows->SetField(u"Velocita", ++speed);
        rows->Update();
    }
}
BENCHMARK(EditOneRow)->Unit(benchmark::kMicrosecond)->UseRealTime();

void InsertInOneTransaction(benchmark::State& state)
{
    const auto path = Folder() / "righe.mdb";
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        std::filesystem::remove(path);
        jet::Database::Create(path, jet::Version::Jet4);
        const auto database = jet::Database::Open(path, jet::OpenMode::ReadWrite);
        CreateMany(*database);
        state.ResumeTiming();
        database->BeginTrans();
        AddRows(*database->OpenTable(u"Timbrature"), 5000);
        database->CommitTrans();
    }
    state.SetItemsProcessed(state.iterations() * 5000);
}
BENCHMARK(InsertInOneTransaction)->Unit(benchmark::kMillisecond)->UseRealTime();

void ScanOnce()
{
    const auto database = jet::Database::Open(ManyRows());
    const auto rows = database->OpenTable(u"Timbrature");
    for (; !rows->AtEof(); rows->MoveNext()) {
        for (const auto* column : {u"Numero", u"Badge", u"Quando", u"Nome"}) {
            benchmark::DoNotOptimize(rows->Field(column));
        }
    }
}

/// False when mdb-export fails.
bool ExportOnce()
{
    const std::string command = "mdb-export '" + ManyRows().string() + "' Timbrature > /dev/null";
    std::FILE* pipe = ::popen(command.c_str(), "r");
    return pipe != nullptr && ::pclose(pipe) == 0;
}

double Milliseconds(const std::function<void()>& action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
        .count();
}

// The two take turns, so that a busy machine slows both; the best turn of each counts.
void ScanAgainstExport(benchmark::State& state)
{
    ManyRows();
    double scan = std::numeric_limits<double>::max();
    double exported = scan;
    for ([[maybe_unused]] auto iteration : state) {
        scan = std::min(scan, Milliseconds(ScanOnce));
        exported = std::min(exported, Milliseconds([&] {
                                if (!ExportOnce()) {
                                    state.SkipWithError("mdb-export fails");
                                }
                            }));
    }
    state.counters["scan_ms"] = scan;
    state.counters["mdb_export_ms"] = exported;
    state.counters["times_as_fast"] = exported / scan;
}
BENCHMARK(ScanAgainstExport)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(15);

void SeekAmongManyRows(benchmark::State& state)
{
    const auto database = jet::Database::Open(ManyRows());
    const auto rows = database->OpenTable(u"Timbrature");
    rows->SetIndex(u"PrimaryKey");
    std::int32_t number = 0;
    for ([[maybe_unused]] auto iteration : state) {
        number = (number + 7919) % kManyRows;
        rows->Seek({number});
        benchmark::DoNotOptimize(rows->NoMatch());
    }
}
BENCHMARK(SeekAmongManyRows);

void LoadThirtyTwoTerminals(benchmark::State& state)
{
    const auto path = CopyOf("nimbo-32-2003.mdb");
    std::vector<std::u16string> columns;
    for (const jet::TableInfo& table : jet::Database::Open(path)->TableDefs()) {
        for (const jet::ColumnInfo& column : table.columns) {
            if (table.name == u"TERMINALI") {
                columns.push_back(column.name);
            }
        }
    }
    for ([[maybe_unused]] auto iteration : state) {
        const auto database = jet::Database::Open(path);
        const auto rows = database->OpenTable(u"TERMINALI");
        rows->SetIndex(u"TERMINALE");
        for (; !rows->AtEof(); rows->MoveNext()) {
            for (const auto& column : columns) {
                benchmark::DoNotOptimize(rows->Field(column));
            }
        }
    }
}
BENCHMARK(LoadThirtyTwoTerminals)->Unit(benchmark::kMicrosecond);

}  // namespace
