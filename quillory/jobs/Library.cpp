#include <quillory/exchange/Input.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/Library.h>
#include <quillory/store/HomeFolder.h>
#include <zorby/archive/ArchiveException.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>
#include <zorby/text/General.h>
#include <zorby/workforms/TemplateList.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillory {
namespace {

namespace fs = std::filesystem;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

constexpr const char* kDictionary = "MARCBibl.tfm";
constexpr const char* kCodes = "marc21-codes.tsv";

// With its trailing separator. Without any data file, the folder where they should be.
std::string DataFolder() {
    if (const std::string data = Variable("QUILLORY_DATA"); !data.empty()) return data + "/";
    const std::string beside = zorby::CurrentApplicationPort().Folder();
    return fs::exists(beside + kDictionary) ? beside : beside + "../share/quillory/";
}

// The library shows a file that can't be opened to the user, and does not say why it can't.
void CheckDataFile(const std::string& path) {
    errno = 0;
    if (std::ifstream(path).is_open()) return;
    throw FileError(path, {FaultCode::kNoDataFile, {}, std::strerror(errno)});
}

// Runs `load`, which reads data files.
template <class Load>
void LoadData(std::initializer_list<std::string> paths, Load load) {
    for (const std::string& path : paths) CheckDataFile(path);
    zorby::RecordedMessages messages;
    const zorby::MessagesInForce inForce(messages);
    try {
        if (load() != 0) return;
    } catch (const zorby::CArchiveException& damage) {
        throw FileError(damage.what());
    }
    std::string reason;
    for (const auto& message : messages.messages) reason += message.text;
    throw FileError(reason);
}

// The library takes a file that it can't read for one that is not there.
void CheckProfileFile(const std::string& path) {
    constexpr const char* kUnread = ": the settings can't be read: ";
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT) return;
        throw FileError(path + kUnread + std::strerror(errno));
    }
    if (!S_ISREG(status.st_mode)) throw FileError(path + kUnread + "it is not a file");
    if (faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
        throw FileError(path + kUnread + std::strerror(errno));
    }
    if (static_cast<std::uint64_t>(status.st_size) > kMostHeld) {
        throw FileError(path + kUnread + "it has more than " + std::to_string(kMostHeld) +
                        " bytes");
    }
}

void ReloadProfile() {
    zorby::CGeneral::m_iniUserProfile.Initialize(zorby::GetZorbyProfilePath());
}

// The library passes over what it can't read, which would leave nothing of what the user asks for.
void CheckUserDefined(const std::string& list) {
    std::vector<std::string> entries;
    zorby::CMARCFormat::ParseUDSubfields(list, entries, 0);
    if (!list.empty() && entries.empty()) {
        throw UsageError({FaultCode::kNoUserDefinedField, {}, list});
    }
}

// The types are the same each time, and whoever has one in hand keeps it.
int LoadHoldingsTypes(const std::string& folder) {
    using zorby::CInfoAboutHoldingsTypeList;
    static const CInfoAboutHoldingsTypeList* loaded = nullptr;
    static std::string loadedFrom;
    const auto* inForce = CInfoAboutHoldingsTypeList::TheOneAndOnly();
    if (inForce != nullptr && inForce == loaded && folder == loadedFrom) return 1;
    if (CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder) == 0) return 0;
    loaded = CInfoAboutHoldingsTypeList::TheOneAndOnly();
    loadedFrom = folder;
    return 1;
}

constexpr const char* kOwnSection = "Quillory";

// Throws FileError unless `read` gives what `write` has written to the file.
template <class Write, class Read>
void WriteAndReadBack(const std::string& value, Write write, Read read) {
    std::error_code error;
    fs::create_directories(HomeFolder(), error);
    errno = 0;
    write();
    const int reason = errno;
    ReloadProfile();
    std::string written;
    read(written);
    if (written != value) {
        throw FileError(zorby::GetZorbyProfilePath() + ": can't be written" +
                        (reason != 0 ? std::string(": ") + std::strerror(reason) : ""));
    }
}

}  // namespace

std::string DataFile(const std::string& name) {
    return DataFolder() + name;
}

void LoadSettings() {
    if (!HasHomeFolder()) return;
    const std::string folder = HomeFolder().string() + "/";
    zorby::SetZorbyProfilePath(folder.c_str());
    CheckProfileFile(folder + "Quillory Main.ini");
    CheckProfileFile(zorby::GetZorbyProfilePath());
    ReloadProfile();
}

void WriteSetting(int key, const std::string& value) {
    WriteAndReadBack(
        value, [&] { zorby::WriteZorbyProfileString(key, value); },
        [&](std::string& written) { zorby::GetZorbyProfileString(key, written); });
}

std::string ReadOwnSetting(const char* key) {
    std::string value;
    zorby::GetZorbyProfileStringRaw(kOwnSection, key, value);
    return value;
}

void WriteOwnSetting(const char* key, const std::string& value) {
    WriteAndReadBack(
        value, [&] { zorby::WriteZorbyProfileStringRaw(kOwnSection, key, value.c_str()); },
        [&](std::string& written) { written = ReadOwnSetting(key); });
}

SettingsKeeper::SettingsKeeper() : settings_(zorby::CGeneral::m_iniUserProfile) {}

SettingsKeeper::~SettingsKeeper() {
    zorby::CGeneral::m_iniUserProfile = std::move(settings_);
}

void LoadDictionaries(const std::string& userDefined) {
    CheckUserDefined(userDefined);
    const std::string folder = DataFolder();
    zorby::FixedApplication application(folder, '/', false);
    const zorby::ApplicationInForce inForce(application);
    LoadData({folder + "zorby.hld", folder + kDictionary}, [&] {
        return LoadHoldingsTypes(folder) != 0 ? zorby::CMARCFormat::InitializeYourself(userDefined)
                                              : 0;
    });
}

void RenewUserDefinedFields() {
    zorby::CMARCFormat::RemoveUserDefined();
    zorby::CMARCFormat::AddUserDefined(zorby::CHoldingsSelector::GetUDFields());
}

void LoadWorkforms() {
    const std::string folder = DataFolder();
    LoadData({folder + "zorby.ttm"},
             [&] { return zorby::CTemplateList::InitializeTemplateList(folder); });
}

CodeLists LoadCodeLists() {
    return CodeLists(CodeStatus(DataFolder() + kCodes));
}

}  // namespace quillory
