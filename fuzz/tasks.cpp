#include <quillory/edits/TaskFile.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/queries/Query.h>

#include <array>
#include <fuzz/Home.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillory::fuzz {
namespace {

RecordCondition ConditionOf(const std::string& text) {
    auto reading = std::make_shared<QueryReading>(ParseQuery(text));
    const Fault& fault = reading->fault;
    if (!reading->query) throw UsageError(fault);
    reading->query->SetValidity([](const Record&) { return true; });
    return [reading](const Record& record) { return reading->query->Matches(record); };
}

const CodeLists& Lists() {
    static const CodeLists lists{CodeStatus()};
    return lists;
}

// In UTF-8 and in MARC-8.
std::array<Record, 2> Records() {
    Record utf8{"00000nam a2200000 i 4500",
                {{"001", "x1"},
                 {"008", "240109s1913    fr            000 1 fre d"},
                 {"020",
                  "  \x1F"
                  "a123\x1F"
                  "c9.95"},
                 {"245",
                  "10\x1F"
                  "aDu c\xC3\xB4t\xC3\xA9 {x} $1 :\x1F"
                  "bTHE END"},
                 {"500",
                  "  \x1F"
                  "a\xFF bad \x1F"
                  "a"},
                 {"650",
                  " 0\x1F"
                  "aRivers"},
                 {"650",
                  " 0\x1F"
                  "aRivers"},
                 {"852",
                  "  \x1F"
                  "bMain\x1F"
                  "pB1\x1F"
                  "933"}},
                {}};
    Record marc8 = utf8;
    marc8.leader = "00000nam  2200000 i 4500";
    marc8.fields[3].content =
        "10\x1F"
        "aDu c\xE3ot\xE2"
        "e \x1B(NABC\x1B(B";
    return {utf8, marc8};
}

std::string BytesOf(const Record& record) {
    MarcAssembler assembler(kOversizeRefuse);
    Expect(assembler.Assemble(record).written, "an edited record can be written");
    return std::string(assembler.Bytes());
}

// Result: the bytes after the edit.
std::string Carry(RecordEditor& editor, const std::string& bytes) {
    zorby::CommFormatFields fields;
    Expect(!zorby::ReadCommFormat(bytes, fields), "an edited record can be read");
    Record record{fields.leader, fields.fields, bytes};
    Losses losses;
    const Edit& edit = editor.Carry(record, losses);
    Expect(!edit.refused || edit.changes.empty(), "what is refused changes nothing");
    return BytesOf(record);
}

std::optional<EditTask> Read(std::string_view toml) {
    try {
        return ReadTask(toml, "task", {{Lists, HoldingsSystemNamed}, ConditionOf});
    } catch (const FileError& error) {
        const std::string_view text = error.what();
        const bool namesPlace = text.starts_with("task:") || text.starts_with("task, line ");
        Expect(namesPlace, "a fault in a task names its place");
        return std::nullopt;
    }
}

}  // namespace
}  // namespace quillory::fuzz

// The file of a task. What is a task is carried out twice.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace quillory;
    using namespace quillory::fuzz;
    static const bool isReady = (PutAllInForce(), true);
    if (!isReady) return 0;
    auto task = Read({reinterpret_cast<const char*>(bytes), size});
    if (!task) return 0;
    RecordEditor editor(std::move(*task), {{}, true, true});
    for (const Record& record : Records()) Carry(editor, Carry(editor, BytesOf(record)));
    return 0;
}
