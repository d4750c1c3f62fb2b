#include <quillory/exchange/MarcReader.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/repair/RecordRepairer.h>
#include <zorby/workforms/TemplateList.h>

#include <benchmark/benchmark.h>

#include <benchmarks/RecordFile.h>
#include <optional>
#include <string>

namespace quillory::bench {
namespace {

constexpr std::size_t kRecords = 10000;

// Bytes of the 008 of the record, which is English fiction: an illustration and a form of item that
// are no codes, and a language that no list has.
std::string WithFaults(std::string record) {
    const std::size_t field008 = record.find("eng d") - 35;
    record[field008 + 18] = '9';
    record[field008 + 23] = '?';
    record.replace(field008 + 35, 3, "xyz");
    return record;
}

// Records from a file to nowhere, as both commands carry them.
void Carry(benchmark::State& state, bool withFaults, bool isRepaired) {
    const RecordFile file(kRecords, withFaults ? WithFaults(CatalogueBytes()) : CatalogueBytes());
    zorby::CTemplateList::InitializeTemplateList(DATA_FOLDER "/");
    const CodeLists lists{CodeStatus(DATA_FOLDER "/marc21-codes.tsv")};
    RecordRepairer repairer(lists, {});
    std::size_t repairs = 0;
    for ([[maybe_unused]] auto _ : state) {
        Input input(file.Path());
        Output output("/dev/null");
        MarcReader reader(input, false);
        MarcWriter writer(output, kOversizeRefuse);
        Recoder recoder({kCharsetAuto, kCharsetAuto, {}});
        Losses losses;
        Item item;
        while (reader.Next(item)) {
            if (isRepaired) repairs += repairer.PutRight(item.record).size();
            recoder.Recode(item.record, losses);
            writer.Write(item.record, losses);
        }
        output.Finish();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRecords));
    state.counters["repairs"] =
        static_cast<double>(repairs) / static_cast<double>(state.iterations()) / kRecords;
    zorby::CTemplateList::DestroyTemplateList();
}
BENCHMARK_CAPTURE(Carry, convert, false, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Carry, repairValid, false, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Carry, repairFaulty, true, true)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillory::bench
