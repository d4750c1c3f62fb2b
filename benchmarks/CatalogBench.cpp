#include <quillory/cataloging/RecordMaker.h>
#include <quillory/exchange/MarcWriter.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/platform/ApplicationPort.h>
#include <zorby/workforms/TemplateList.h>

#include <benchmark/benchmark.h>

#include <string>

namespace quillory::bench {
namespace {

constexpr int kDescriptions = 10000;
constexpr const char* kDescription = R"([[record]]
language = "eng"
country = "enk"
020a = "9780306406157"
100a = "Weber, Anna,"
100e = "author."
245a = "The river below :"
245b = "a history of the Danube pilots /"
245c = "Anna Weber."
264 = {a = "London :", b = "Harbour Press,", c = 2021}
300 = {a = "xii, 312 pages :", b = "illustrations ;", c = "24 cm"}
520a = "How the pilots of one river kept their guild through four centuries."
650 = ["_0$aRiver pilots$xHistory.", "_0$aGuilds$zEurope$xHistory."]
)";

zorby::TemplateHolder FindStandard(const std::string& name) {
    return zorby::TemplateHolder(zorby::CTemplateList::GetStandardTemplate(name.c_str()));
}

CodeLists LoadLists() {
    return CodeLists(CodeStatus(DATA_FOLDER "/marc21-codes.tsv"));
}

void LoadData() {
    zorby::FixedApplication application(DATA_FOLDER "/", '/', false);
    zorby::SetApplicationPort(&application);
    zorby::CMARCFormat::InitializeYourself("");
    zorby::CTemplateList::InitializeTemplateList(DATA_FOLDER "/");
    zorby::SetApplicationPort(nullptr);
}

std::string Descriptions() {
    std::string toml = std::string("workform = \"") + zorby::CTemplateList::kFallbackName + "\"\n";
    for (int i = 0; i < kDescriptions; ++i) toml += kDescription;
    return toml;
}

// From the text of the descriptions to the bytes of the records.
void RecordsFromDescriptions(benchmark::State& state) {
    LoadData();
    const std::string toml = Descriptions();
    for ([[maybe_unused]] auto _ : state) {
        RecordMaker maker(FindStandard, LoadLists, {});
        MarcAssembler assembler(kOversizeRefuse);
        DescriptionReader reader(toml);
        for (Description description; reader.Next(description);) {
            Draft draft = maker.Begin(description);
            assembler.Assemble(maker.Finish(draft, description));
            benchmark::DoNotOptimize(assembler.Bytes());
        }
    }
    state.SetItemsProcessed(state.iterations() * kDescriptions);
}
BENCHMARK(RecordsFromDescriptions)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillory::bench
