#include <zorby/charset/Compare.h>
#include <zorby/charset/Convert.h>
#include <zorby/charset/QmCode.h>

#include <benchmark/benchmark.h>

#include <benchmarks/CatalogueText.h>
#include <string>
#include <vector>

namespace zorby::bench {
namespace {

// Aim: 400 MB/s and more on Latin prose, of 80 bytes and of 64 KiB, and never under 100 MB/s.
//
// Bytes are those read. A piece of text is copied before each conversion in place, and the copy
// counts. Short texts are pieces of the long one in turn, so that no branch is learnt by heart.
constexpr std::size_t kLong = std::size_t{64} << 10;
constexpr std::size_t kShort = 80;

class Texts {
public:
    Texts(const std::string& text, std::size_t size) : pieces_(Pieces(text, size)) {}

    const std::string& Next() {
        if (++next_ >= pieces_.size()) next_ = 0;
        return pieces_[next_];
    }

private:
    std::vector<std::string> pieces_;
    std::size_t next_ = 0;
};

void CountBytes(benchmark::State& state, std::size_t size) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(size));
}

using InPlace = void (*)(std::string& text);

void ConvertInPlace(benchmark::State& state, const std::string& text, std::size_t size,
                    InPlace convert) {
    Texts texts(text, size);
    std::string converted;
    for ([[maybe_unused]] auto _ : state) {
        converted = texts.Next();
        convert(converted);
        benchmark::DoNotOptimize(converted.data());
    }
    CountBytes(state, size);
}

void Display(benchmark::State& state, const std::string& text, std::size_t size) {
    Texts texts(text, size);
    std::string display(size + 1, '\0');
    for ([[maybe_unused]] auto _ : state) {
        CSQmToDisplay(texts.Next().c_str(), display.data(), kDisplayANSI, 0);
        benchmark::DoNotOptimize(display.data());
    }
    CountBytes(state, size);
}

void MakeKey(std::string& text) {
    CSpConvertForCompare(&text);
}

void Register(const TextKind& kind, std::size_t size) {
    const std::string suffix = std::string("/") + kind.name + "/" + std::to_string(size);
    const std::string marc8 = kind.marc8(kLong);
    const std::string qm = kind.qm(kLong);
    benchmark::RegisterBenchmark(("CSMARCToZorby" + suffix).c_str(), ConvertInPlace, marc8, size,
                                 CSMARCToZorby);
    benchmark::RegisterBenchmark(("CSZorbyToMARC" + suffix).c_str(), ConvertInPlace, qm, size,
                                 CSZorbyToMARC);
    benchmark::RegisterBenchmark(("CSpConvertForCompare" + suffix).c_str(), ConvertInPlace, qm,
                                 size, MakeKey);
    benchmark::RegisterBenchmark(("CSQmToDisplay" + suffix).c_str(), Display, qm, size);
}

[[maybe_unused]] const bool registered = [] {
    for (const TextKind& kind : TextKinds()) {
        for (const std::size_t size : {kShort, kLong}) Register(kind, size);
    }
    return true;
}();

}  // namespace
}  // namespace zorby::bench
