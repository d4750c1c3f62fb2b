#include <zorby/text/General.h>
#include <zorby/text/WildPattern.h>

#include <benchmark/benchmark.h>

#include <benchmarks/CatalogueText.h>
#include <string>
#include <vector>

namespace zorby::bench {
namespace {

// Aim: 1 GB/s and more for a literal in a long text. Bytes are those of the texts searched, none of
// which has the literal.
constexpr std::size_t kTitle = 80;
constexpr std::size_t kLong = std::size_t{1} << 20;

std::vector<std::string> Texts(std::size_t size) {
    const TextKind& latin = TextKinds().front();
    return Pieces(latin.qm(kLong), size);
}

void CountBytes(benchmark::State& state, std::size_t size) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(size));
}

void Find(benchmark::State& state, const std::string& literal, std::size_t size) {
    const std::vector<std::string> texts = Texts(size);
    const WildPattern pattern(literal, true);
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        WildMatch match;
        benchmark::DoNotOptimize(pattern.Find(texts[next], false, match));
        next = next + 1 == texts.size() ? 0 : next + 1;
    }
    CountBytes(state, size);
}

void FindWild(benchmark::State& state) {
    const std::vector<std::string> texts = Texts(kTitle);
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        int position = 0;
        int start = 0;
        int end = 0;
        benchmark::DoNotOptimize(
            CGeneral::FindWild(texts[next], "*xylophone", 0, position, start, end, 1));
        next = next + 1 == texts.size() ? 0 : next + 1;
    }
    CountBytes(state, kTitle);
}

// The whole text is of the literal's bytes, and the literal is not in it.
void FindInHostileText(benchmark::State& state) {
    const std::string text(kLong, 'q');
    const WildPattern pattern(std::string(1000, 'q') + "a" + std::string(1000, 'q'), true);
    const WildPattern half("q" + std::string(kLong, '?'), true);
    for ([[maybe_unused]] auto _ : state) {
        WildMatch match;
        benchmark::DoNotOptimize(pattern.Find(text, true, match));
        WildMatch other;
        benchmark::DoNotOptimize(half.Find(text, true, other));
    }
    CountBytes(state, 2 * kLong);
}

BENCHMARK(FindWild);
BENCHMARK(FindInHostileText);
[[maybe_unused]] const bool registered = [] {
    for (const char* literal : {"rivers", "the tha", "eeee", "Qabala", "once upon a timf"}) {
        for (const std::size_t size : {kTitle, kLong}) {
            const std::string name = std::string("WildPattern/") + literal + "/";
            benchmark::RegisterBenchmark((name + std::to_string(size)).c_str(), Find, literal,
                                         size);
        }
    }
    return true;
}();

}  // namespace
}  // namespace zorby::bench
