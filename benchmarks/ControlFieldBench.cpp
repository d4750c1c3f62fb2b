#include <zorby/controlfields/MainMaterial.h>
#include <zorby/controlfields/MenuData.h>

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

namespace zorby::bench {
namespace {

// Codes of the longest list: of its first and its last item, of one in the middle of the main list,
// and one that isn't there.
constexpr const char* kLanguageCodes[] = {"aar", "zxx", "eng", "qqq"};

void ForEachCode(benchmark::internal::Benchmark* benchmark) {
    for (int i = 0; i < 4; ++i) benchmark->Arg(i);
}

std::string_view CodeOfRun(benchmark::State& state) {
    const char* code = kLanguageCodes[state.range(0)];
    state.SetLabel(code);
    return code;
}

// Aim: under 200 nanoseconds, as the next.
void LanguageIndexFromCode(benchmark::State& state) {
    const CCFMenuData menu(CFP008Language);
    const std::string_view code = CodeOfRun(state);
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(menu.GetIndexFromCode(code));
}
BENCHMARK(LanguageIndexFromCode)->Apply(ForEachCode);

void LanguageTextFromCode(benchmark::State& state) {
    const CCFMenuData menu(CFP008Language);
    const std::string_view code = CodeOfRun(state);
    std::string text;
    for ([[maybe_unused]] auto _ : state) {
        menu.GetTextFromCode(code, text);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(LanguageTextFromCode)->Apply(ForEachCode);

void LanguageCodeFromText(benchmark::State& state) {
    const CCFMenuData menu(CFP008Language);
    std::string code;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(menu.GetCodeFromText("No linguistic content", code));
    }
}
BENCHMARK(LanguageCodeFromText);

void MakeMenuData(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        const CCFMenuData menu(CFP008Language);
        benchmark::DoNotOptimize(menu.GetMenuText());
    }
}
BENCHMARK(MakeMenuData);

constexpr CFPart kParts[] = {CFPLdrRecordStatus, CFP008Language, CFP006BooksBiography,
                             CFP007MicroformBase, CFPCombinedFormOfItem};

CCFMainMaterial Microform() {
    CCFMainMaterial material;
    material.Create(CF006Books, CF007Microform, "00000nam#a2200000#i#4500", "", "hd#bdu---bucu",
                    "261121s2026####enka###j#a####000#1#eng#d", "");
    return material;
}

void ForEachPart(benchmark::internal::Benchmark* benchmark) {
    for (const CFPart part : kParts) benchmark->Arg(part);
}

// Aim: under 50 nanoseconds, as the next.
void GetPart(benchmark::State& state) {
    const CCFMainMaterial material = Microform();
    const auto part = static_cast<CFPart>(state.range(0));
    std::string text;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(material.Get(part, text));
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(GetPart)->Apply(ForEachPart);

void SetPart(benchmark::State& state) {
    CCFMainMaterial material = Microform();
    const auto part = static_cast<CFPart>(state.range(0));
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(material.Set(part, "ad"));
}
BENCHMARK(SetPart)->Apply(ForEachPart);

}  // namespace
}  // namespace zorby::bench
