#include <quillory/jobs/ConvertFiles.h>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

// Inputs that are made so that a careless program takes time that grows with the square of their
// size. Aim: time that grows with the size, and 1 MB in less than 2 s.
namespace quillory::bench {
namespace {

class SilentPort : public JobPort {
public:
    void Say(const Message&) override {}
};

std::string Times(std::size_t bytes, const std::string& text) {
    std::string all;
    all.reserve(bytes + text.size());
    while (all.size() < bytes) all += text;
    return all;
}

std::string Mrk(const std::string& fields) {
    return "=LDR  00000nam a2200000 a 4500\n=001  x\n" + fields + "\n\n";
}

std::string Xml(const std::string& record) {
    return "<collection xmlns=\"http://www.loc.gov/MARC21/slim\">" + record;
}

// A file of a shape, of about so many bytes.
using Shape = std::string (*)(std::size_t bytes);

// Marks of two classes by turns, which a normal form has to put in order.
std::string MarksOnALetter(std::size_t bytes) {
    return Mrk("=245  10$aa" + Times(bytes, "\u0301\u0323"));
}

// Marks without a place of their own that come apart into two.
std::string MarksThatComeApart(std::size_t bytes) {
    return Mrk("=245  10$a\u0F40" + Times(bytes, "\u0F73"));
}

std::string DiacriticsOfMarc8(std::size_t bytes) {
    std::string mrk = Mrk("=245  10$a" + Times(bytes, "\xE2\xF2"));
    mrk[mrk.find("nam a") + 4] = ' ';
    return mrk;
}

std::string FieldsOfOneTag(std::size_t bytes) {
    return Mrk(Times(bytes, "=500  \\\\$ax\n"));
}

std::string EmptyFields(std::size_t bytes) {
    return Mrk(Times(bytes, "=001  \n"));
}

std::string AttributesOfATag(std::size_t bytes) {
    std::string tag = "<record";
    for (int i = 0; tag.size() < bytes; ++i) tag += " a" + std::to_string(i) + "=\"\"";
    return Xml(tag + "/>");
}

std::string ElementsInOneAnother(std::size_t bytes) {
    return Xml(Times(bytes, "<record>"));
}

std::string ObjectsInOneAnother(std::size_t bytes) {
    return Times(bytes, "{\"leader\":");
}

std::string StrayBytes(std::size_t bytes) {
    return std::string(bytes, 'x');
}

void Convert(benchmark::State& state, Shape shape, Charset charset, NormalForm normalForm,
             const char* form) {
    const auto path = std::filesystem::temp_directory_path() / "quillory_shape_bench";
    const auto size = static_cast<std::size_t>(state.range(0));
    std::ofstream(path, std::ios::binary) << shape(size);
    ConvertOptions options;
    options.input.files = {path.string()};
    options.output.output = "/dev/null";
    options.output.form = FormNamed(form);
    options.output.charset = charset;
    options.output.normalForm = normalForm;
    options.output.writing.oversize = kOversizeCut;
    SilentPort port;
    for ([[maybe_unused]] auto _ : state) {
        Reporter reporter(port, {true, false});
        benchmark::DoNotOptimize(ConvertFiles(options, reporter));
    }
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * state.range(0));
    std::filesystem::remove(path);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(4)->Range(1 << 14, 1 << 20)->Complexity()->Unit(benchmark::kMillisecond);
}

#define SHAPE(name, ...) BENCHMARK_CAPTURE(Convert, name, name, __VA_ARGS__)->Apply(Sizes)

SHAPE(MarksOnALetter, kCharsetMarc8, kNormalFormC, "mrk");
SHAPE(MarksThatComeApart, kCharsetUtf8, kNormalFormD, "mrk");
SHAPE(DiacriticsOfMarc8, kCharsetUtf8, kNormalFormC, "mrk");
SHAPE(FieldsOfOneTag, kCharsetAuto, kNormalFormC, "marc");
SHAPE(EmptyFields, kCharsetAuto, kNormalFormC, "microlif");
SHAPE(AttributesOfATag, kCharsetAuto, kNormalFormC, "marc");
SHAPE(ElementsInOneAnother, kCharsetAuto, kNormalFormC, "marc");
SHAPE(ObjectsInOneAnother, kCharsetAuto, kNormalFormC, "marc");
SHAPE(StrayBytes, kCharsetAuto, kNormalFormC, "marc");

}  // namespace
}  // namespace quillory::bench
