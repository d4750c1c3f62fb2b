#include <quillory/store/RecordBatch.h>
#include <quillory/store/Schema.h>

#include <benchmark/benchmark.h>

#include <array>
#include <benchmarks/CatalogueRecord.h>
#include <chrono>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <unistd.h>

namespace quillory::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kRecords = 1000000;
constexpr std::size_t kBatch = 50000;

// Records of one size, with titles and control numbers in no order.
class RecordSource {
public:
    RecordSource() { zorby::bench::BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes_); }

    NewRecord Next() {
        constexpr std::array<const char*, 16> kWords{
            "The",    "river", "History", "of", "navigation", "Letters", "from", "Danube",
            "pilots", "under", "crowns",  "A",  "guild",      "and",     "its",  "charter"};
        std::string title;
        for (int i = 0; i < 6; ++i) title += std::string(kWords[random_() % kWords.size()]) + " ";
        title += std::to_string(random_() % 2000);
        return {{"hz" + std::to_string(random_()), title, "am"}, bytes_, 0};
    }

private:
    std::mt19937 random_{4711};
    std::string bytes_;
};

void AddRecords(RecordStore& store, RecordSource& source, std::size_t count) {
    RecordBatch batch(store, kBatch);
    for (std::size_t i = 0; i < count; ++i) batch.Add(source.Next());
    batch.Flush();
}

// A store of a million records, made when it is first needed and removed at the end.
class LargeStore {
public:
    static LargeStore& Get() {
        static LargeStore store;
        return store;
    }
    ~LargeStore() {
        records.reset();
        database.reset();
        fs::remove_all(folder_);
    }
    LargeStore(const LargeStore&) = delete;
    LargeStore& operator=(const LargeStore&) = delete;

    std::string Path() const { return (folder_ / "quillory.db").string(); }

    RecordSource source;
    std::optional<Database> database;
    std::optional<RecordStore> records;
    double fillRate = 0;  // records a second, from the first to the millionth

private:
    LargeStore()
        : folder_(fs::temp_directory_path() / ("quillory-bench-" + std::to_string(getpid()))) {
        database.emplace(OpenStore(Path()));
        records.emplace(*database);
        const auto start = std::chrono::steady_clock::now();
        AddRecords(*records, source, kRecords);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        fillRate = static_cast<double>(kRecords) / seconds.count();
    }

    fs::path folder_;
};

// Each round adds ten batches to a million records or more.
void StoreAdd(benchmark::State& state) {
    constexpr std::size_t kRound = 10 * kBatch;
    LargeStore& store = LargeStore::Get();
    for ([[maybe_unused]] auto _ : state) AddRecords(*store.records, store.source, kRound);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRound));
    state.counters["fill"] = store.fillRate;
}
BENCHMARK(StoreAdd)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void StoreFindById(benchmark::State& state) {
    const LargeStore& store = LargeStore::Get();
    std::mt19937 random{1};
    for ([[maybe_unused]] auto _ : state) {
        const auto id = static_cast<std::int64_t>(random() % kRecords) + 1;
        benchmark::DoNotOptimize(store.records->Find(id));
    }
}
BENCHMARK(StoreFindById)->UseRealTime();

void StoreFindByTitle(benchmark::State& state) {
    const LargeStore& store = LargeStore::Get();
    RecordSelection selection;
    selection.titlePrefix = "letters from DANUBE pilots under crowns";
    for ([[maybe_unused]] auto _ : state) {
        std::size_t found = 0;
        store.records->Walk(selection, [&](const StoredRecord&) { return ++found < 20; });
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(StoreFindByTitle)->UseRealTime();

void StoreOpen(benchmark::State& state) {
    const std::string path = LargeStore::Get().Path();
    for ([[maybe_unused]] auto _ : state) {
        const Database database = OpenStore(path);
        const RecordStore records(database);
        benchmark::DoNotOptimize(records.Find(1));
    }
}
BENCHMARK(StoreOpen)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillory::bench
