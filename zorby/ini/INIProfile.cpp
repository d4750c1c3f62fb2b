#include <zorby/ini/INIProfile.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/platform/detail/Decimal.h>
#include <zorby/platform/detail/IniText.h>

namespace zorby {

void CINIProfile::Initialize(std::string_view path) {
    std::string text;
    const bool isRead = CurrentProfileFilePort().ReadText(path, text) != 0;
    Empty();
    if (!isRead) return;
    Section* current = nullptr;
    for (const IniLine& line : IniLines(text)) {
        if (line.kind == IniLineKind::kSection) current = &SectionNamed(line.name);
        if (line.kind == IniLineKind::kValue && current) {
            current->insert_or_assign(std::string(line.name), std::string(line.value));
        }
    }
}

void CINIProfile::GetPrivateProfileValue(std::string_view section, std::string_view key,
                                         std::string_view defaultValue, std::string& value) const {
    const std::string* found = Find(section, key);
    value = found ? *found : std::string(defaultValue);
}

void CINIProfile::GetPrivateProfileValue(std::string_view section, std::string_view key,
                                         int defaultValue, int& value) const {
    const std::string* found = Find(section, key);
    value = found ? DecimalInt(*found) : defaultValue;
}

void CINIProfile::SetPrivateProfileValue(std::string_view section, std::string_view key,
                                         std::string_view value) {
    SectionNamed(section).insert_or_assign(std::string(key), std::string(value));
}

void CINIProfile::SetPrivateProfileValue(std::string_view section, std::string_view key,
                                         int value) {
    SetPrivateProfileValue(section, key, std::to_string(value));
}

void CINIProfile::Empty() {
    sections_.clear();
}

CINIProfile::Section& CINIProfile::SectionNamed(std::string_view name) {
    const auto found = sections_.find(name);
    return found != sections_.end() ? found->second : sections_[std::string(name)];
}

const std::string* CINIProfile::Find(std::string_view section, std::string_view key) const {
    const auto foundSection = sections_.find(section);
    if (foundSection == sections_.end()) return nullptr;
    const auto found = foundSection->second.find(key);
    return found != foundSection->second.end() ? &found->second : nullptr;
}

}  // namespace zorby
