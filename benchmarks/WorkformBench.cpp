#include <zorby/workforms/TemplateList.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

namespace zorby::bench {
namespace {

// The standard workforms as they are built.
void LoadWorkforms() {
    if (CTemplateList::InitializeTemplateList(DATA_FOLDER "/") != 1) {
        throw std::runtime_error("no workforms");
    }
}

// Aim: in force within 10 milliseconds.
void LoadStandardWorkforms(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) LoadWorkforms();
    state.counters["workforms"] = CTemplateList::TheOneAndOnly()->GetSize();
}
BENCHMARK(LoadStandardWorkforms)->Unit(benchmark::kMillisecond);

std::string theBlock;

TemplateCallbacks Host() {
    TemplateCallbacks host{};
    host.infoByID = [](const int&, std::string* name, int*, int*, int*) {
        if (name != nullptr) *name = "Mine";
        return 1;
    };
    host.update = [](int, const char*, int, int, int, int, int) { return 100; };
    host.fetchBlock = [](int, void** block, int& size) {
        size = static_cast<int>(theBlock.size());
        *block = std::malloc(theBlock.size());
        std::memcpy(*block, theBlock.data(), theBlock.size());
        return 1;
    };
    host.storeBlock = [](int, void* block, int size) {
        theBlock.assign(static_cast<const char*>(block), static_cast<std::size_t>(size));
    };
    return host;
}

// One of the user's, out of its block.
void GetUserWorkform(benchmark::State& state) {
    LoadWorkforms();
    CTemplate workform;
    workform.CloneFrom(*CTemplateList::GetTemplate(MTBook));
    CTemplate::InitTemplateCB(Host());
    workform.SaveYourself(0, 1);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(TemplateHolder(CTemplateList::GetTemplate(100)));
    }
    CTemplate::InitTemplateCB({});
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(theBlock.size()));
}
BENCHMARK(GetUserWorkform);

// Help that is the base's own, which is the longest way to it.
void SubfieldRulesOfBase(benchmark::State& state) {
    LoadWorkforms();
    const CTemplate* workform = CTemplateList::GetStandardTemplate("Picture book");
    std::string text;
    for ([[maybe_unused]] auto _ : state) {
        workform->SubfieldRules(100, 'a', text);
        benchmark::DoNotOptimize(text.data());
    }
    if (text.empty()) throw std::runtime_error("no rules");
}
BENCHMARK(SubfieldRulesOfBase);

}  // namespace
}  // namespace zorby::bench
