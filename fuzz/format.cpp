#include <zorby/format/InfoAboutDefaultData.h>
#include <zorby/format/InfoAboutPriority.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/platform/ApplicationPort.h>

#include <filesystem>
#include <fstream>
#include <fuzz/Persisted.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

namespace zorby {
namespace {

using fuzz::Expect;

template <class List>
void CheckList(const std::string& bytes) {
    List list;
    if (!fuzz::Load(bytes, list)) Expect(list.GetSize() == 0, "a damaged list adds nothing");
    fuzz::ExpectRoundTrip<List>(list);
}

void CheckLookups(const CInfoAboutSubfieldList& list) {
    for (int i = list.GetSize(); i-- > 0;) {
        const CInfoAboutSubfield& subfield = *list.GetAt(i);
        const CInfoAboutSubfield* found = list.Find(subfield.GetTag(), subfield.GetCode());
        int first = 0;
        while (list.GetAt(first)->GetTag() != subfield.GetTag() ||
               list.GetAt(first)->GetCode() != subfield.GetCode()) {
            ++first;
        }
        Expect(found == list.GetAt(first), "the first match is found");
    }
}

void CheckFile(const std::string& bytes) {
    CMARCFormat format;
    if (!fuzz::Load(bytes, format)) return;
    fuzz::ExpectRoundTrip<CMARCFormat>(format);
    CheckLookups(format.GetSubfields());
}

void CheckUserDefined(FuzzedDataProvider& data) {
    const bool allowBareTags = data.ConsumeBool();
    const std::string list = data.ConsumeRemainingBytesAsString();
    const CMARCFormat& format = *CMARCFormat::TheOneAndOnly();
    const int standardFields = format.GetFields().GetSize();
    const int standardSubfields = format.GetSubfields().GetSize();
    std::vector<std::string> entries;
    CMARCFormat::ParseUDSubfields(list, entries, allowBareTags);
    for (const std::string& entry : entries) {
        Expect(entry.find_first_not_of("0123456789") >= 3, "an entry begins with a tag");
        Expect(
            entry.size() == 3 || (entry.size() == 4 && CMARCFormat::IsAnyValidSubfield(entry[3])),
            "an entry ends with a valid code or none");
    }
    entries.clear();
    CMARCFormat::ParseUDSubfields(list, entries, 0);
    CMARCFormat::AddUserDefined(list);
    for (const std::string& entry : entries) {
        const auto tag = static_cast<unsigned>(std::stoi(entry.substr(0, 3)));
        Expect(entry.size() == 3 ? CMARCFormat::FindField(tag) != nullptr
                                 : CMARCFormat::FindSubfield(tag, entry[3]) != nullptr,
               "what a list names is known");
    }
    CMARCFormat::RemoveUserDefined();
    Expect(format.GetFields().GetSize() == standardFields, "standard fields stay");
    Expect(format.GetSubfields().GetSize() == standardSubfields, "standard subfields stay");
}

// A dictionary of one field, by way of a file, which is how one comes in force.
void PutInForce() {
    CMARCFormat format;
    format.AddField(590, '#', '#', "Local note", 1, 0, 0);
    format.AddSubfield(590, 'a', "Text", 0, 0, 1, 1);
    const std::string folder =
        std::filesystem::temp_directory_path() / ("fuzz_format_" + std::to_string(getpid()) + "/");
    std::filesystem::create_directory(folder);
    std::ofstream(folder + "MARCBibl.tfm", std::ios::binary) << fuzz::Store(format);
    FixedApplication application(folder, '/', false);
    SetApplicationPort(&application);
    Expect(CMARCFormat::InitializeYourself("") == 1, "a dictionary that was stored loads");
    SetApplicationPort(nullptr);
    CMARCFormat::RemoveUserDefined();
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace zorby;
    if (!CMARCFormat::TheOneAndOnly()) PutInForce();
    FuzzedDataProvider data(bytes, size);
    switch (data.ConsumeIntegralInRange(0, 4)) {
        case 0:
            CheckFile(data.ConsumeRemainingBytesAsString());
            break;
        case 1:
            CheckList<CInfoAboutSubfieldPriorityList>(data.ConsumeRemainingBytesAsString());
            break;
        case 2:
            CheckList<CInfoAboutDefaultDataList>(data.ConsumeRemainingBytesAsString());
            break;
        default:
            CheckUserDefined(data);
    }
    return 0;
}
