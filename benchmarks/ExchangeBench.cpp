#include <quillory/exchange/Form.h>
#include <quillory/exchange/MarcReader.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/text/TextConverter.h>

#include <benchmark/benchmark.h>

#include <benchmarks/CatalogueText.h>
#include <benchmarks/RecordFile.h>
#include <string>
#include <vector>

namespace quillory::bench {
namespace {

using zorby::bench::LatinMarc8;
using zorby::bench::Pieces;

constexpr std::size_t kTextSize = std::size_t{64} << 10;
constexpr std::size_t kFieldSize = 80;

// Fields that the one-byte code holds.
std::vector<std::string> LatinFields() {
    return Pieces(LatinMarc8(kTextSize), kFieldSize);
}

// Fields of a title in basic Cyrillic, which the one-byte code does not hold.
std::vector<std::string> CyrillicFields() {
    return std::vector<std::string>(kTextSize / kFieldSize,
                                    "\x1B(NwOJNA I MIR \x1B(B/ letters \x1B(NIZ pETERBURGA\x1B(B");
}

std::vector<std::string> Converted(const std::vector<std::string>& fields, Charset from,
                                   Charset to) {
    TextConverter converter(from, to, kNormalFormC);
    Losses losses;
    std::vector<std::string> converted(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        AppendConverted(fields[i], converter, converted[i], losses);
    }
    return converted;
}

void ConvertFields(benchmark::State& state, const std::vector<std::string>& fields, Charset from,
                   Charset to) {
    TextConverter converter(from, to, kNormalFormC);
    Losses losses;
    std::string out;
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        out.clear();
        for (const std::string& field : fields) {
            AppendConverted(field, converter, out, losses);
            bytes += static_cast<std::int64_t>(field.size());
        }
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(bytes);
}

void ToUtf8(benchmark::State& state, std::vector<std::string> (*fields)()) {
    ConvertFields(state, fields(), kCharsetMarc8, kCharsetUtf8);
}
BENCHMARK_CAPTURE(ToUtf8, latin, LatinFields);
BENCHMARK_CAPTURE(ToUtf8, cyrillic, CyrillicFields);

void ToMarc8(benchmark::State& state, std::vector<std::string> (*fields)()) {
    ConvertFields(state, Converted(fields(), kCharsetMarc8, kCharsetUtf8), kCharsetUtf8,
                  kCharsetMarc8);
}
BENCHMARK_CAPTURE(ToMarc8, latin, LatinFields);
BENCHMARK_CAPTURE(ToMarc8, cyrillic, CyrillicFields);

// Records from a file, through the character sets, to nowhere.
void CarryRecords(benchmark::State& state, Charset to) {
    const RecordFile file(10000);
    for ([[maybe_unused]] auto _ : state) {
        Input input(file.Path());
        Output output("/dev/null");
        MarcReader reader(input, false);
        MarcWriter writer(output, kOversizeRefuse);
        Recoder recoder({kCharsetAuto, to, {}});
        Losses losses;
        Item item;
        while (reader.Next(item)) {
            recoder.Recode(item.record, losses);
            writer.Write(item.record, losses);
        }
        output.Finish();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(file.Size()));
}
BENCHMARK_CAPTURE(CarryRecords, unchanged, kCharsetAuto)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CarryRecords, toUtf8, kCharsetUtf8)->Unit(benchmark::kMillisecond);

// Carries records from form to form as they are, and counts them.
std::int64_t CarryForm(const std::string& fromPath, const char* from, const std::string& toPath,
                       const char* to) {
    Input input(fromPath);
    Output output(toPath);
    const auto reader = FormNamed(from)->makeReader(input, false);
    const auto writer = FormNamed(to)->makeWriter(output, kOversizeRefuse);
    Losses losses;
    Item item;
    std::int64_t records = 0;
    while (reader->Next(item)) {
        if (item.kind != kItemRecord) continue;
        writer->Write(item.record, losses);
        ++records;
    }
    writer->Finish();
    output.Finish();
    return records;
}

void WriteForm(benchmark::State& state, const char* form) {
    const RecordFile file(10000);
    std::int64_t records = 0;
    for ([[maybe_unused]] auto _ : state) {
        records += CarryForm(file.Path(), "marc", "/dev/null", form);
    }
    state.SetItemsProcessed(records);
}

void ReadForm(benchmark::State& state, const char* form) {
    const RecordFile file(10000);
    const std::string path = file.Path() + ".form";
    CarryForm(file.Path(), "marc", path, form);
    std::int64_t records = 0;
    for ([[maybe_unused]] auto _ : state) {
        records += CarryForm(path, form, "/dev/null", "marc");
    }
    state.SetItemsProcessed(records);
    std::filesystem::remove(path);
}

BENCHMARK_CAPTURE(WriteForm, mrk, "mrk")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteForm, marcxml, "marcxml")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteForm, jsonl, "jsonl")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadForm, mrk, "mrk")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadForm, marcxml, "marcxml")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadForm, jsonl, "jsonl")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillory::bench
