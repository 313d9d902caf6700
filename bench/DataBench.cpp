// Loading the delivered data.dat (about 3,500 records): part one reads the
// header and keeps the scrambled record lines, part two turns them into
// records. Both run at start-up with the hourglass shown.
#include <benchmark/benchmark.h>

#include <string>

#include "core/LineFile.h"
#include "fooddb/DataFile.h"
#include "fooddb/FoodTable.h"

namespace {

const std::string& DeliveredBytes()
{
    static const std::string bytes = pw::ReadWholeFile(std::string(PLATEWELL_SOURCE_DIR) + "/data/data.dat", pw::kDataFileLimit);
    return bytes;
}

void BM_LoadDatabaseHeader(benchmark::State& state)
{
    const std::string& bytes = DeliveredBytes();
    pw::FoodTable table;
    for (auto _ : state) {
        if (pw::LoadDatabaseHeader(bytes, table) != pw::HeaderResult::Ok)
            state.SkipWithError("checksum mismatch");
        benchmark::DoNotOptimize(table.RawRecordLines().data());
    }
    state.SetItemsProcessed(state.iterations() * (table.LastIndex() + 1));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(BM_LoadDatabaseHeader)->Unit(benchmark::kMicrosecond);

void BM_LoadDatabaseRecords(benchmark::State& state)
{
    pw::FoodTable table;
    if (pw::LoadDatabaseHeader(DeliveredBytes(), table) != pw::HeaderResult::Ok)
        state.SkipWithError("checksum mismatch");
    for (auto _ : state) {
        pw::LoadDatabaseRecords(table);
        benchmark::DoNotOptimize(table.Value(table.LastIndex(), pw::kCalories));
    }
    state.SetItemsProcessed(state.iterations() * (table.LastIndex() + 1));
}
BENCHMARK(BM_LoadDatabaseRecords)->Unit(benchmark::kMicrosecond);

void BM_LoadDatabase(benchmark::State& state)
{
    const std::string& bytes = DeliveredBytes();
    pw::FoodTable table;
    for (auto _ : state) {
        if (pw::LoadDatabaseHeader(bytes, table) != pw::HeaderResult::Ok)
            state.SkipWithError("checksum mismatch");
        pw::LoadDatabaseRecords(table);
        benchmark::DoNotOptimize(table.Value(table.LastIndex(), pw::kCalories));
    }
    state.SetItemsProcessed(state.iterations() * (table.LastIndex() + 1));
}
BENCHMARK(BM_LoadDatabase)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
