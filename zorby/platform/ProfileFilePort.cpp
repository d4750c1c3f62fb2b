#include <zorby/platform/ProfileFilePort.h>
#include <zorby/platform/detail/Decimal.h>
#include <zorby/platform/detail/FileRewrite.h>
#include <zorby/platform/detail/IniText.h>
#include <zorby/platform/detail/PortSlot.h>

#include <cerrno>

namespace zorby {

namespace {

class DiskProfileFiles : public ProfileFilePort {
public:
    int ReadText(std::string_view path, std::string& text) override {
        return ReadFile(std::string(path), text) ? 1 : 0;
    }

    int WriteValue(std::string_view path, std::string_view section, std::string_view key,
                   const char* value) override {
        if (!IniCanHold(section, key, value)) {
            errno = EINVAL;
            return 0;
        }
        const auto change = [&](std::string_view text) {
            return IniTextWith(text, section, key, value);
        };
        return RewriteFile(std::string(path), change) ? 1 : 0;
    }
};

}  // namespace

int ProfileFilePort::ReadInt(std::string_view path, std::string_view section, std::string_view key,
                             int defaultValue) {
    std::string text;
    if (!ReadText(path, text)) return defaultValue;
    const std::optional<std::string_view> value = IniValue(text, section, key);
    return value ? DecimalInt(*value) : defaultValue;
}

int MemoryProfileFiles::ReadText(std::string_view path, std::string& text) {
    const auto found = texts.find(path);
    if (found == texts.end()) return 0;
    text = found->second;
    return 1;
}

int MemoryProfileFiles::WriteValue(std::string_view path, std::string_view section,
                                   std::string_view key, const char* value) {
    if (!IniCanHold(section, key, value)) return 0;
    std::string old;
    ReadText(path, old);
    const std::string text = IniTextWith(old, section, key, value);
    if (text != old) texts[std::string(path)] = text;
    return 1;
}

ProfileFilePort& CurrentProfileFilePort() {
    return SlotOf<ProfileFilePort, DiskProfileFiles>().Get();
}

void SetProfileFilePort(ProfileFilePort* port) {
    SlotOf<ProfileFilePort, DiskProfileFiles>().Set(port);
}

}  // namespace zorby
