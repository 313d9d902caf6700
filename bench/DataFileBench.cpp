// Loading and saving a full table of 4,000 generated records.
#include <benchmark/benchmark.h>

#include "fooddb/DataFile.h"
#include "fooddb/FoodGroups.h"

namespace {

pw::FoodTable FullTable()
{
    pw::FoodTable table;
    pw::SetDataVersion(table, "v1.37 Generated benchmark data");
    for (int i = 0; i < pw::kFoodCapacity; ++i) {
        pw::FoodRecord r;
        r.group = std::string(pw::kGroupNames[i * pw::kGroupCount / pw::kFoodCapacity]);
        r.subgroup = "Subgroup number " + std::to_string(i / 40);
        r.description = "A generated description of a food, number " + std::to_string(i);
        r.measure = std::to_string(1 + i % 4) + " cup";
        r.values = {0, i % 50, i % 90, i % 40, i % 300, i % 20, i % 900, i % 2000, 0};
        r.values[pw::kCalories] = pw::ComputeCalories(r.values[1], r.values[2], r.values[3], 0);
        table.Append(r);
    }
    table.DatabaseDirty = true;
    return table;
}

const std::string& FullFile()
{
    static const std::string bytes = [] {
        pw::FoodTable table = FullTable();
        return pw::SaveDatabaseToBytes(table);
    }();
    return bytes;
}

void LoadDatabaseBothParts(benchmark::State& state)
{
    const std::string& bytes = FullFile();
    pw::FoodTable table;
    for (auto _ : state) {
        pw::LoadDatabaseHeader(bytes, table);
        pw::LoadDatabaseRecords(table);
        benchmark::DoNotOptimize(table.Value(table.LastIndex(), pw::kCalories));
    }
    state.SetItemsProcessed(state.iterations() * pw::kFoodCapacity);
}
BENCHMARK(LoadDatabaseBothParts)->Unit(benchmark::kMillisecond);

void LoadDatabaseHeaderOnly(benchmark::State& state)
{
    const std::string& bytes = FullFile();
    pw::FoodTable table;
    for (auto _ : state)
        pw::LoadDatabaseHeader(bytes, table);
}
BENCHMARK(LoadDatabaseHeaderOnly)->Unit(benchmark::kMillisecond);

void SaveDatabaseDirty(benchmark::State& state)
{
    pw::FoodTable table = FullTable();
    for (auto _ : state) {
        table.DatabaseDirty = true;
        benchmark::DoNotOptimize(pw::SaveDatabaseToBytes(table));
    }
    state.SetItemsProcessed(state.iterations() * pw::kFoodCapacity);
}
BENCHMARK(SaveDatabaseDirty)->Unit(benchmark::kMillisecond);

}  // namespace
