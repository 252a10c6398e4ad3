#include "jet/database.h"

#include <benchmark/benchmark.h>

#include <cstdint>

// Reading the punches and the people of a foreign database: 2000 rows of six columns, and 60 rows
// with long values.

namespace
{

std::unique_ptr<jet::Database> OpenSample()
{
    return jet::Database::Open(SAMPLE_FOLDER "/nimbo-foreign-2000.mdb");
}

std::vector<std::u16string> ColumnsOf(const jet::Database& database, std::u16string_view table)
{
    std::vector<std::u16string> columns;
    for (const jet::TableInfo& info : database.TableDefs()) {
        for (const jet::ColumnInfo& column : info.columns) {
            if (info.name == table) {
                columns.push_back(column.name);
            }
        }
    }
    return columns;
}

void Scan(benchmark::State& state, std::u16string_view table, std::u16string_view index)
{
    const auto database = OpenSample();
    const auto columns = ColumnsOf(*database, table);
    const auto rows = database->OpenTable(table);
    rows->SetIndex(index);
    std::int64_t count = 0;
    for ([[maybe_unused]] auto iteration : state) {
        for (rows->MoveFirst(); !rows->AtEof(); rows->MoveNext()) {
            for (const auto& column : columns) {
                benchmark::DoNotOptimize(rows->Field(column));
            }
            ++count;
        }
    }
    state.SetItemsProcessed(count);
}

void ScanInFileOrder(benchmark::State& state)
{
    Scan(state, u"Timbrature", u"");
}
BENCHMARK(ScanInFileOrder);

void ScanInIndexOrder(benchmark::State& state)
{
    Scan(state, u"Timbrature", u"PerQuando");
}
BENCHMARK(ScanInIndexOrder);

void ScanLongValues(benchmark::State& state)
{
    Scan(state, u"Dipendenti", u"");
}
BENCHMARK(ScanLongValues);

void Seek(benchmark::State& state)
{
    const auto database = OpenSample();
    const auto rows = database->OpenTable(u"Timbrature");
    rows->SetIndex(u"PrimaryKey");
    std::int32_t id = 0;
    for ([[maybe_unused]] auto iteration : state) {
        id = id % 2250 + 1;
        rows->Seek({id});
        benchmark::DoNotOptimize(rows->NoMatch());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Seek);

void SeekText(benchmark::State& state)
{
    const auto database = OpenSample();
    const auto rows = database->OpenTable(u"Dipendenti");
    rows->SetIndex(u"PerCognome");
    for ([[maybe_unused]] auto iteration : state) {
        rows->Seek({jet::Text(u"D'Angelo"), jet::Text(u"José")});
        benchmark::DoNotOptimize(rows->NoMatch());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(SeekText);

void OpenRegister(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state) {
        const auto database = OpenSample();
        benchmark::DoNotOptimize(database->OpenTable(u"TERMINALI"));
    }
}
BENCHMARK(OpenRegister);

}  // namespace
