#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/detail/ProfilePaths.h>
#include <zorby/text/General.h>

namespace zorby {

namespace {

constexpr std::string_view kSection = "Zorby";

}  // namespace

int GetZorbyProfileInt(int id) {
    const ProfileKeyRow* row = FindProfileKey(id);
    return row ? GetZorbyProfileIntRaw(kSection, row->name, row->defaultNumber) : 0;
}

void WriteZorbyProfileInt(int id, int value) {
    WriteZorbyProfileString(id, std::to_string(value));
}

void GetZorbyProfileString(int id, std::string& value) {
    value.clear();
    const ProfileKeyRow* row = FindProfileKey(id);
    if (!row) return;
    const std::string_view defaultText = row->defaultText ? row->defaultText : "";
    CGeneral::m_iniUserProfile.GetPrivateProfileValue(kSection, row->name, defaultText, value);
}

void WriteZorbyProfileString(int id, std::string_view value) {
    const ProfileKeyRow* row = FindProfileKey(id);
    if (row) WriteZorbyProfileStringRaw(kSection, row->name, std::string(value).c_str());
}

void WriteZorbyProfileIntBoth(int id, int value) {
    const ProfileKeyRow* row = FindProfileKey(id);
    if (!row) return;
    const std::string text = std::to_string(value);
    ProfileFilePort& files = CurrentProfileFilePort();
    const std::string path = GetZorbyProfilePath();
    files.WriteValue(path, kSection, row->name, text.c_str());
    files.WriteValue(OtherProfilePath(), kSection, row->name, text.c_str());
    CGeneral::m_iniUserProfile.SetPrivateProfileValue(kSection, row->name, text);
}

void GetZorbyProfileStringRaw(std::string_view section, std::string_view key, std::string& value) {
    CGeneral::m_iniUserProfile.GetPrivateProfileValue(section, key, "", value);
}

void WriteZorbyProfileStringRaw(std::string_view section, std::string_view key, const char* value) {
    CGeneral::m_iniUserProfile.SetPrivateProfileValue(section, key,
                                                      std::string_view(value ? value : ""));
    CurrentProfileFilePort().WriteValue(GetZorbyProfilePath(), section, key, value);
}

int GetZorbyProfileIntRaw(std::string_view section, std::string_view key, int defaultValue) {
    int value = 0;
    CGeneral::m_iniUserProfile.GetPrivateProfileValue(section, key, defaultValue, value);
    return value;
}

void WriteZorbyProfileIntRaw(std::string_view section, std::string_view key, int value) {
    WriteZorbyProfileStringRaw(section, key, std::to_string(value).c_str());
}

}  // namespace zorby
