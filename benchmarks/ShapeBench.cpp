#include <quillory/arguments/Program.h>
#include <quillory/cli/Commands.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

// Inputs that are made so that a careless program takes time that grows with the square of their
// size. Aim: time that grows with the size, and 1 MB in less than 2 s, whatever the command.
namespace quillory::bench {
namespace {

namespace fs = std::filesystem;

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

// Of a record without a control number.
std::string FaultyControlFields(std::size_t bytes) {
    return Mrk(Times(bytes, "=007  zz \n"));
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

// Bytes that Windows 1252 leaves without a character.
std::string BytesWithoutCharacter(std::size_t bytes) {
    return Mrk("=245  10$a" + Times(bytes, "\x81"));
}

// Fields that no form but ISO 2709 has room for.
std::string FieldsOfTheLeadersTag(std::size_t bytes) {
    return Mrk(Times(bytes, "=000  x\n"));
}

std::string FieldsWithoutCodes(std::size_t bytes) {
    return Mrk(Times(bytes, "=500  \\\\$ax\n=500  \\\\$\n"));
}

std::string WordsOfATitle(std::size_t bytes) {
    return Mrk("=245  10$a" + Times(bytes, "word "));
}

std::string AWordOfATitle(std::size_t bytes) {
    return Mrk("=245  10$a" + Times(bytes, "w"));
}

std::string AddedEntries(std::size_t bytes) {
    return Mrk(Times(bytes, "=650  \\0$aTopic\n"));
}

std::string ItemsOfAList(std::size_t bytes) {
    return "[[record]]\nworkform = 1\n650a = [" + Times(bytes, "\"x\", ") + "]\n";
}

std::string CopiesUnderANumber(std::size_t bytes) {
    return "001\tITEMBC\n" + Times(bytes, "x\t1\n");
}

std::string StrayBytes(std::size_t bytes) {
    return std::string(bytes, 'x');
}

// Takes what a command prints, as long as it is there.
class Silence {
public:
    Silence() : out_(dup(STDOUT_FILENO)), error_(dup(STDERR_FILENO)) {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    ~Silence() {
        dup2(out_, STDOUT_FILENO);
        dup2(error_, STDERR_FILENO);
        close(out_);
        close(error_);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int out_;
    int error_;
};

int RunCommand(const std::string& command, const std::string& file, const std::string& record) {
    std::vector<std::string> words{"quillory"};
    std::istringstream in(command);
    for (std::string word; in >> word;) {
        words.push_back(word == "FILE" ? file : word == "RECORD" ? record : word);
    }
    std::vector<const char*> arguments;
    arguments.reserve(words.size());
    for (const std::string& word : words) arguments.push_back(word.c_str());
    Arguments program("quillory", "", "");
    DeclareCommands(program);
    return RunProgram(program, static_cast<int>(arguments.size()), arguments.data());
}

// Runs a command line, in which FILE is a file of the shape, and RECORD one of a single record.
void Run(benchmark::State& state, Shape shape, const char* command) {
    const fs::path folder = fs::temp_directory_path() / "quillory_shape_bench";
    fs::create_directories(folder);
    setenv("QUILLORY_HOME", (folder / "home").c_str(), 1);
    setenv("QUILLORY_DATA", DATA_FOLDER, 0);
    const std::string file = (folder / "shape").string();
    const std::string record = (folder / "record.mrk").string();
    std::ofstream(file, std::ios::binary) << shape(static_cast<std::size_t>(state.range(0)));
    std::ofstream(record, std::ios::binary) << Mrk("=245  10$aTitle");
    constexpr int kWrong = 2;
    int status = 0;
    {
        const Silence silence;
        for ([[maybe_unused]] auto _ : state) status = RunCommand(command, file, record);
    }
    if (status == kWrong) state.SkipWithError("the command can't be run");
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * state.range(0));
    fs::remove_all(folder);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(4)->Range(1 << 14, 1 << 20)->Complexity()->Unit(benchmark::kMillisecond);
}

struct Work {
    const char* name;
    Shape shape;
    const char* command;
};

#define WORK(shape, name, command) \
    { "Run/" #shape "_" #name, shape, command }
#define CONVERT "convert --from mrk FILE -o /dev/null "

const Work kWorks[] = {
    WORK(MarksOnALetter, Marc8, CONVERT "--to mrk --to-charset marc8"),
    WORK(MarksThatComeApart, Nfd, CONVERT "--to mrk --to-charset utf8 --normalize nfd"),
    WORK(DiacriticsOfMarc8, Utf8, CONVERT "--to mrk --to-charset utf8"),
    WORK(BytesWithoutCharacter, Utf8, CONVERT "--to mrk --from-charset cp1252 --to-charset utf8"),
    WORK(FieldsOfOneTag, Marc, CONVERT "--to marc --oversize cut"),
    WORK(FieldsOfOneTag, Check, "check --from mrk FILE --each -o /dev/null"),
    WORK(FieldsOfOneTag, Repair, "repair --from mrk FILE --to mrk -o /dev/null"),
    WORK(FieldsOfOneTag, Show, "show --from mrk FILE"),
    WORK(FieldsOfOneTag, Edit, "edit trim 500 --from mrk FILE --to mrk -o /dev/null"),
    WORK(FieldsOfOneTag, EditReport,
         "edit case 500a --as upper --from mrk FILE --report /dev/null --to mrk -o /dev/null"),
    WORK(FaultyControlFields, Repair,
         "repair --from mrk FILE --each --report /dev/null --to mrk -o /dev/null"),
    WORK(EmptyFields, Sarif, "check --from mrk FILE --format sarif -o /dev/null"),
    WORK(FieldsOfTheLeadersTag, Microlif, CONVERT "--to microlif"),
    WORK(FieldsWithoutCodes, Lenient, CONVERT "--to mrk --lenient"),
    WORK(EmptyFields, Microlif, CONVERT "--to microlif"),
    WORK(AWordOfATitle, Cards, "cards --from mrk FILE -o /dev/null"),
    WORK(WordsOfATitle, Cards, "cards --from mrk FILE -o /dev/null"),
    WORK(AddedEntries, Cards, "cards --from mrk FILE -o /dev/null"),
    WORK(ItemsOfAList, Catalog, "catalog FILE --to mrk -o /dev/null"),
    WORK(CopiesUnderANumber, Export,
         "export RECORD --holdings FILE --holdings-type 1 --to mrk -o /dev/null"),
    WORK(AttributesOfATag, Convert, "convert --from marcxml FILE -o /dev/null"),
    WORK(ElementsInOneAnother, Convert, "convert --from marcxml FILE -o /dev/null"),
    WORK(ObjectsInOneAnother, Convert, "convert --from jsonl FILE -o /dev/null"),
    WORK(StrayBytes, Convert, "convert --from marc FILE -o /dev/null"),
};

[[maybe_unused]] const bool kRegistered = [] {
    for (const Work& work : kWorks) {
        Sizes(benchmark::RegisterBenchmark(work.name, Run, work.shape, work.command));
    }
    return true;
}();

}  // namespace
}  // namespace quillory::bench
