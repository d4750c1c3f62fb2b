#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/detail/ProfilePaths.h>

namespace zorby {

namespace {

constexpr std::string_view kLearningFolder = "Learning";

std::string dataFolder;
int userID = 0;

std::string UserFileIn(const std::string& folder) {
    return folder + "Quillory " + std::to_string(userID) + ".INI";
}

void LoadUserID() {
    if (dataFolder.empty()) dataFolder = CurrentApplicationPort().Folder();
    userID = CurrentProfileFilePort().ReadInt(dataFolder + "Quillory Main.ini", "User Information",
                                              "ThisUserID", 0);
}

}  // namespace

void SetZorbyProfilePath(const char* path) {
    if (path) dataFolder = path;
}

void GetDataPath(std::string& path) {
    path = dataFolder;
}

void ZorbyProfileChangeUserID(int newUserID) {
    userID = newUserID;
}

int GetThisUserID() {
    return userID;
}

std::string GetZorbyProfilePath() {
    if (userID <= 0) LoadUserID();
    return UserFileIn(dataFolder);
}

std::string OtherProfilePath() {
    const std::size_t learning = dataFolder.find(kLearningFolder);
    if (learning != std::string::npos) return UserFileIn(dataFolder.substr(0, learning));
    const char separator = CurrentApplicationPort().PathSeparator();
    return UserFileIn(dataFolder + std::string(kLearningFolder) + separator +
                      std::to_string(userID) + separator);
}

}  // namespace zorby
