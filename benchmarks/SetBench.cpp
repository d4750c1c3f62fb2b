#include <quillory/sets/Duplicates.h>
#include <quillory/sets/ExternalSort.h>
#include <quillory/sets/MatchKey.h>
#include <quillory/sets/PackedItem.h>
#include <quillory/sets/RecordDifference.h>
#include <quillory/sets/SortKey.h>

#include <benchmark/benchmark.h>

#include <benchmarks/CatalogueRecord.h>
#include <random>
#include <string>
#include <vector>

namespace quillory::bench {
namespace {

// A record of 40 fields in memory.
struct CatalogueItem {
    CatalogueItem() {
        zorby::bench::BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes);
        zorby::CommFormatFields parts;
        zorby::ReadCommFormat(bytes, parts);
        item.Begin(kItemRecord, 0, bytes);
        item.record = {parts.leader, parts.fields, bytes};
    }

    std::string bytes;
    Item item;
};

std::vector<std::string> RandomKeys(std::size_t count, unsigned most) {
    std::mt19937 random(1);
    std::vector<std::string> keys;
    keys.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        keys.push_back("title " + std::to_string(random() % most));
    }
    return keys;
}

void SortKey(benchmark::State& state, const std::string& by) {
    const CatalogueItem catalogue;
    RecordSortKeys keys({ParseKeyPlaces("--by", by)}, kCharsetAuto);
    std::string key;
    for ([[maybe_unused]] auto _ : state) {
        keys.KeyOf(catalogue.item.record, key);
        benchmark::DoNotOptimize(key.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(SortKey, title, "title");
BENCHMARK_CAPTURE(SortKey, places, "100a,245a,008/07-10");

// 100,000 packed records, in so many MiB of memory: all of them, or a tenth.
void SortRecords(benchmark::State& state) {
    constexpr std::size_t kRecords = 100000;
    const CatalogueItem catalogue;
    std::string packed;
    PackItem(catalogue.item, 0, packed);
    const auto keys = RandomKeys(kRecords, 1U << 30);
    for ([[maybe_unused]] auto _ : state) {
        ExternalSort sort(static_cast<std::size_t>(state.range(0)) << 20);
        for (const std::string& key : keys) sort.Add(key, packed);
        std::size_t bytes = 0;
        sort.ForEach(
            [&bytes](std::string_view, std::string_view record) { bytes += record.size(); });
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRecords));
}
BENCHMARK(SortRecords)->Arg(1024)->Arg(16)->Unit(benchmark::kMillisecond);

void MatchKey(benchmark::State& state, const std::string& by) {
    const CatalogueItem catalogue;
    MatchKeys keys({by}, kCharsetAuto);
    std::vector<std::string> found;
    for ([[maybe_unused]] auto _ : state) {
        keys.Of(catalogue.item.record, found);
        benchmark::DoNotOptimize(found.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(MatchKey, isbn, "020");
BENCHMARK_CAPTURE(MatchKey, title, "title");

// A million keys, of which every other one comes twice or more.
void FindDuplicates(benchmark::State& state) {
    constexpr std::size_t kRecords = 1000000;
    const auto keys = RandomKeys(kRecords, kRecords);
    for ([[maybe_unused]] auto _ : state) {
        Duplicates duplicates(Keep::First, std::size_t{256} << 20);
        for (const std::string& key : keys) duplicates.Add({key}, 0);
        benchmark::DoNotOptimize(duplicates.Find().size());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRecords));
}
BENCHMARK(FindDuplicates)->Unit(benchmark::kMillisecond);

void CompareRecords(benchmark::State& state) {
    const CatalogueItem catalogue;
    ComparableRecord before(kCharsetAuto, {});
    ComparableRecord after(kCharsetAuto, {});
    for ([[maybe_unused]] auto _ : state) {
        before.Set(catalogue.item.record);
        after.Set(catalogue.item.record);
        benchmark::DoNotOptimize(Differences(before, after).size());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(CompareRecords);

}  // namespace
}  // namespace quillory::bench
