#include <quillory/faults/Errors.h>
#include <quillory/holdings/CopyFields.h>
#include <quillory/holdings/HoldingsFile.h>

#include <fuzz/Home.h>
#include <set>
#include <string>

namespace quillory::fuzz {
namespace {

// A record can hold what a copy becomes in it.
void CheckFields(const zorby::CHoldingsDataRecord& copy, const HoldingsSystem& system) {
    std::set<std::string> tags;
    for (const CopyField& field : FieldsOfCopy(copy, system, {})) {
        Expect(field.tag.size() == zorby::kTagSize, "a field has a tag");
        Expect(tags.insert(field.tag).second, "each tag has one field");
        Expect(field.content.find_first_of("\x1D\x1E") == field.content.npos,
               "no value ends a field");
    }
}

// Takes the copies of a line by its key, which is "001 x" or "record 1".
void TakeLine(const HoldingsFile::UnusedLine& line, const HoldingsSystem& system,
              HoldingsFile& file) {
    const std::size_t blank = line.key.find(' ');
    const bool isNumber = line.key.starts_with("record ");
    const std::string key = line.key.substr(blank + 1);
    zorby::CHoldingsDataRecordList copies;
    const bool found =
        isNumber ? file.AddCopies("", std::stoull(key), copies) : file.AddCopies(key, 0, copies);
    Expect(found, "the copies of a key are there");
    Expect(copies.GetSize() > 0, "a line is a copy");
    for (int i = 0; i < copies.GetSize(); ++i) {
        const zorby::CHoldingsDataRecord& copy = *copies.GetAt(i);
        Expect(copy.GetSize() > 0 || !copy.GetHolds().empty(), "a copy has a value");
        CheckFields(copy, system);
    }
}

void Read(const std::string& path) {
    const HoldingsSystem system = HoldingsSystemInForce();
    try {
        HoldingsFile file(path, system);
        while (!file.UnusedLines().empty()) {
            const std::size_t before = file.UnusedLines().size();
            TakeLine(file.UnusedLines().front(), system, file);
            Expect(file.UnusedLines().size() < before, "a line is taken once");
        }
    } catch (const FileError& error) {
        Expect(error.what()[0] != '\0', "an error has words");
    }
}

}  // namespace
}  // namespace quillory::fuzz

// The first byte chooses the system.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    static const bool isReady = (fuzz::PutAllInForce(), true);
    if (size == 0 || !isReady) return 0;
    PutInForce(*FindHoldingsType(std::to_string(data[0] % 16 + 1)));
    fuzz::Read(fuzz::FileOf(data + 1, size - 1));
    return 0;
}
