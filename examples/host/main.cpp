// A small host: starts the library on its installed data, makes a record from a workform, checks
// it, keeps it in an archive, and writes it to standard output in ISO 2709.
//
//   cmake -B build && cmake --build build && build/host > record.mrc
//   c++ main.cpp $(pkg-config --cflags --libs zorby) -o host

#include <zorby/Host.h>

#include <iostream>
#include <string>
#include <string_view>

namespace {

using namespace zorby;

// The library from its start to its end.
class Library {
public:
    explicit Library(const std::string& folder)
        : application_(folder, '/', false), applicationInForce_(application_), folder_(folder) {}
    ~Library() {
        CTemplateList::DestroyTemplateList();
        CMARCFormat::FreeYourself();
        CInfoAboutHoldingsTypeList::DestroyYourself();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    // Each of these tells the user what is missing.
    bool Start() const {
        return CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder_) != 0 &&
               CMARCFormat::InitializeYourself("") != 0 &&
               CTemplateList::InitializeTemplateList(folder_) != 0;
    }

private:
    FixedApplication application_;
    ApplicationInForce applicationInForce_;
    std::string folder_;
};

// The control fields of a book, from its workform. A language that is no code is put right.
CCFMainMaterial ControlFields() {
    CCFMainMaterial fields = CTemplateList::GetTemplate(MTBook)->GetMainMaterial();
    fields.Set(CFP008DateEntered, "261122");
    fields.Set(CFP008Date1, "1808");
    fields.Set(CFP008PlaceOfPublication, "gw");
    fields.Set(CFP008Language, "xyz");
    const auto report = [](CFPart part, void* language) {
        if (part == CFP008Language) *static_cast<bool*>(language) = true;
    };
    bool isLanguageReplaced = false;
    fields.SetInvalidValuesToDefault(report, &isLanguageReplaced, MTBook);
    if (isLanguageReplaced) std::cerr << "008: the language was no code\n";
    return fields;
}

// The control fields as they come back from an archive, such as a file or a database.
CCFMainMaterial Kept(CCFMainMaterial& fields) {
    MemoryStream stream;
    CArchive storing(stream, CArchive::store);
    fields.Serialize(storing);
    storing.Close();
    stream.Seek(0);
    CArchive loading(stream, CArchive::load);
    CCFMainMaterial kept;
    kept.Serialize(loading);
    return kept;
}

CPmarc MakeRecord(const CCFMainMaterial& fields) {
    CPmarc record;
    fields.AddToPseudoMARC(record);
    record.FieldAddControlField(1, 1, "host-1", 0);
    record.AstaAdd(245, '0', '0', 'a', 1, "Faust.");
    return record;
}

// What the host finds wrong, in the library's words, and whether the record may leave.
bool MayLeave(const CPmarc& record) {
    CRecordErrorList findings;
    if (record.FieldExists(245, 1) == 0) findings.Add(EC_NoTitle, EST_Error, 245, 0);
    if (record.FieldExists(300, 1) == 0) findings.Add(EC_NoExtent, EST_Warning, 300, 'a');
    for (int i = 0; i < findings.GetSize(); ++i) {
        std::string message;
        findings.GetAt(i)->GetEnglishMessage(message, 0);
        std::cerr << message << '\n';
    }
    constexpr int kExportError = 2;
    return CErrorCodeBits(findings).OKWarningError(CZorbyProfileBits()) != kExportError;
}

}  // namespace

int main() {
    const std::string folder = InstalledDataFolder();
    if (folder.empty()) {
        std::cerr << "the data files of the library are not installed\n";
        return 1;
    }
    const Library library(folder);
    if (!library.Start()) return 1;

    std::string name;
    CMARCFormat::FieldName(245, EDO_NameAndCode, name);
    std::cerr << name << '\n';

    CCFMainMaterial fields = ControlFields();
    const CPmarc record = MakeRecord(Kept(fields));
    if (!MayLeave(record)) return 1;
    std::string bytes;
    record.ConvertToUSMARCCommFormat(bytes);
    std::cout << bytes << std::flush;
    return std::cout ? 0 : 1;
}
