#include <quillory/exchange/Input.h>
#include <quillory/jobs/Library.h>
#include <quillory/store/HomeFolder.h>
#include <zorby/archive/ArchiveException.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ApplicationPort.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>
#include <zorby/text/General.h>
#include <zorby/workforms/TemplateList.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

namespace quillory {
namespace {

namespace fs = std::filesystem;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

// With its trailing separator. Without any data file, the folder where they should be.
std::string DataFolder() {
    if (const std::string data = Variable("QUILLORY_DATA"); !data.empty()) return data + "/";
    const std::string beside = zorby::CurrentApplicationPort().Folder();
    const bool isBeside = fs::exists(beside + "MARCBibl.tfm");
    return isBeside ? beside : beside + "../share/quillory/";
}

void ReloadProfile() {
    zorby::CGeneral::m_iniUserProfile.Initialize(zorby::GetZorbyProfilePath());
}

// What can't be read is passed over, which would leave nothing here of what the user asks for.
void CheckUserDefined(const std::string& list) {
    std::vector<std::string> entries;
    zorby::CMARCFormat::ParseUDSubfields(list, entries, 0);
    if (!list.empty() && entries.empty()) {
        throw FileError("--user-defined " + list +
                        ": no such fields; they are given as 590ab or 591-595");
    }
}

}  // namespace

void LoadSettings() {
    if (!HasHomeFolder()) return;
    zorby::SetZorbyProfilePath((HomeFolder().string() + "/").c_str());
    ReloadProfile();
}

void WriteSetting(int key, const std::string& value) {
    std::error_code error;
    fs::create_directories(HomeFolder(), error);
    errno = 0;
    zorby::WriteZorbyProfileString(key, value);
    const int reason = errno;
    ReloadProfile();
    std::string written;
    zorby::GetZorbyProfileString(key, written);
    if (written != value) {
        throw FileError(zorby::GetZorbyProfilePath() + ": can't be written" +
                        (reason != 0 ? std::string(": ") + std::strerror(reason) : ""));
    }
}

bool LoadDictionaries(const std::string& userDefined) {
    CheckUserDefined(userDefined);
    const std::string folder = DataFolder();
    zorby::FixedApplication application(folder, '/', false);
    zorby::SetApplicationPort(&application);
    bool loaded = false;
    try {
        loaded = zorby::CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder) != 0 &&
                 zorby::CMARCFormat::InitializeYourself(userDefined) != 0;
    } catch (const zorby::CArchiveException& damage) {
        zorby::SetApplicationPort(nullptr);
        throw FileError(damage.what());
    }
    zorby::SetApplicationPort(nullptr);
    return loaded;
}

bool LoadWorkforms() {
    try {
        return zorby::CTemplateList::InitializeTemplateList(DataFolder()) != 0;
    } catch (const zorby::CArchiveException& damage) {
        throw FileError(damage.what());
    }
}

CodeLists LoadCodeLists() {
    return CodeLists(CodeStatus(DataFolder() + "marc21-codes.tsv"));
}

}  // namespace quillory
