#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <benchmarks/CatalogueRecord.h>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace zorby::bench {
namespace {

// Aim: under 5 microseconds for the 40 fields.
void BuildAndWrite(benchmark::State& state) {
    std::string bytes;
    for ([[maybe_unused]] auto _ : state) {
        BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["fields"] = static_cast<double>(CatalogueRecord().size());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(BuildAndWrite)->Unit(benchmark::kMicrosecond);

void Build(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        const CPmarc record = BuildCatalogueRecord();
        benchmark::DoNotOptimize(&record);
    }
}
BENCHMARK(Build)->Unit(benchmark::kMicrosecond);

void Read(benchmark::State& state) {
    std::string bytes;
    BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes);
    CommFormatFields fields;
    for ([[maybe_unused]] auto _ : state) {
        const CommFormatFault fault = ReadCommFormat(bytes, fields);
        benchmark::DoNotOptimize(fault.reason);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(Read);

// Aim: the time grows as N log N in the number of fields, whatever their tags and order.
using Tags = std::vector<int>;

Tags Ascending(std::size_t count) {
    constexpr std::size_t kFirst = 10;
    constexpr std::size_t kTags = 990;
    Tags tags(count);
    for (std::size_t i = 0; i < count; ++i) tags[i] = static_cast<int>(kFirst + i * kTags / count);
    return tags;
}

Tags Descending(std::size_t count) {
    Tags tags = Ascending(count);
    std::reverse(tags.begin(), tags.end());
    return tags;
}

Tags Shuffled(std::size_t count) {
    Tags tags = Ascending(count);
    std::shuffle(tags.begin(), tags.end(), std::mt19937(1450));
    return tags;
}

// One tag in nine fields of ten.
Tags Many650s(std::size_t count) {
    Tags tags = Shuffled(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 10 != 0) tags[i] = 650;
    }
    return tags;
}

// Fields are short, but the largest record is still more than the format holds.
void Grow(benchmark::State& state, Tags (*tagsOf)(std::size_t)) {
    const Tags tags = tagsOf(static_cast<std::size_t>(state.range(0)));
    std::string bytes;
    for ([[maybe_unused]] auto _ : state) {
        CPmarc record;
        for (const int tag : tags) AddField({tag, " 0", {{'a', "Pilots."}}}, record);
        record.ConvertToUSMARCCommFormat(bytes);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(70)->Arg(700)->Arg(7000)->Complexity(benchmark::oNLogN);
    benchmark->Unit(benchmark::kMicrosecond);
}
BENCHMARK_CAPTURE(Grow, ascending, Ascending)->Apply(Sizes);
BENCHMARK_CAPTURE(Grow, descending, Descending)->Apply(Sizes);
BENCHMARK_CAPTURE(Grow, shuffled, Shuffled)->Apply(Sizes);
BENCHMARK_CAPTURE(Grow, many650s, Many650s)->Apply(Sizes);

}  // namespace
}  // namespace zorby::bench
