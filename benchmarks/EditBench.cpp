#include <quillory/edits/OperationTable.h>
#include <quillory/edits/RecordEditor.h>
#include <quillory/exchange/MarcReader.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/queries/Query.h>

#include <benchmark/benchmark.h>

#include <benchmarks/RecordFile.h>
#include <memory>
#include <optional>
#include <string>

namespace quillory::bench {
namespace {

constexpr std::size_t kRecords = 10000;

// Puts a word at the end of the title, where the condition holds.
EditTask TaskFor(const char* condition) {
    Parameters parameters;
    parameters.Set("place", "245a");
    parameters.Set("regex", "$");
    parameters.Set("with", " [edited]");
    EditTask task;
    task.where = [query = std::make_shared<QueryReading>(ParseQuery(condition))](
                     const Record& record) { return query->query->Matches(record); };
    EditStep& step = task.steps.emplace_back();
    step.operation = "replace";
    step.work = MakeOperation(*OperationNamed("replace"), parameters, {});
    return task;
}

// Records from a file to nowhere, as both commands carry them. Without a condition nothing is
// edited.
void Carry(benchmark::State& state, const char* condition) {
    const RecordFile file(kRecords);
    std::optional<RecordEditor> editor;
    if (condition != nullptr) editor.emplace(TaskFor(condition), EditorOptions{{}, true, false});
    std::size_t changes = 0;
    for ([[maybe_unused]] auto _ : state) {
        Input input(file.Path());
        Output output("/dev/null");
        MarcReader reader(input, false);
        MarcWriter writer(output, kOversizeRefuse);
        Recoder recoder({kCharsetAuto, kCharsetAuto, {}});
        Losses losses;
        Item item;
        while (reader.Next(item)) {
            recoder.Recode(item.record, losses);
            if (editor) changes += editor->Carry(item.record, losses).changes.size();
            writer.Write(item.record, losses);
        }
        output.Finish();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRecords));
    state.counters["changes"] =
        static_cast<double>(changes) / static_cast<double>(state.iterations()) / kRecords;
}
BENCHMARK_CAPTURE(Carry, convert, nullptr)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Carry, editNone, "245a contains \"xyzzy\"")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Carry, editAll, "has 245a")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillory::bench
