#include <zorby/ini/INIProfile.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/ProfileFilePort.h>

#include <algorithm>
#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <string_view>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr std::string_view kPath = "user.ini";
constexpr std::string_view kAbsent = "\x01 absent";

struct Name {
    std::string section;
    std::string key;
};

Name TakeName(FuzzedDataProvider& data) {
    return {data.ConsumeRandomLengthString(12), data.ConsumeRandomLengthString(12)};
}

std::string ValueIn(MemoryProfileFiles& files, const Name& name) {
    SetProfileFilePort(&files);
    CINIProfile profile;
    profile.Initialize(kPath);
    SetProfileFilePort(nullptr);
    std::string value;
    profile.GetPrivateProfileValue(name.section, name.key, kAbsent, value);
    int number = 0;
    profile.GetPrivateProfileValue(name.section, name.key, -77, number);
    Expect(number == files.ReadInt(kPath, name.section, name.key, -77),
           "profile and file read the same number");
    return value;
}

void CheckFile(FuzzedDataProvider& data) {
    const Name name = TakeName(data);
    const Name other = TakeName(data);
    const bool removes = data.ConsumeBool();
    const std::string value = data.ConsumeRandomLengthString(12);
    MemoryProfileFiles files;
    files.texts[std::string(kPath)] = data.ConsumeRemainingBytesAsString();
    const std::string before = files.texts[std::string(kPath)];
    const std::string otherBefore = ValueIn(files, other);

    const char* const wanted = removes ? nullptr : value.c_str();
    if (files.WriteValue(kPath, name.section, name.key, wanted) == 0) {
        Expect(files.texts[std::string(kPath)] == before, "a refused write changes nothing");
        return;
    }
    const std::string after = files.texts[std::string(kPath)];
    Expect(ValueIn(files, name) == (wanted ? std::string_view(wanted) : kAbsent),
           "a value that was written is read");
    if (other.section != name.section || other.key != name.key) {
        Expect(ValueIn(files, other) == otherBefore, "a write changes one value");
    }
    Expect(files.WriteValue(kPath, name.section, name.key, wanted) == 1, "a write can be repeated");
    Expect(files.texts[std::string(kPath)] == after, "a repeated write changes nothing");
}

void CheckPairs(FuzzedDataProvider& data) {
    const bool keepsBackslash = data.ConsumeBool();
    const bool ownSeparator = data.ConsumeBool();
    const std::string separator = ownSeparator ? data.ConsumeRandomLengthString(3) : "\\\\";
    const std::string key = data.ConsumeRandomLengthString(8);
    const std::string value = data.ConsumeRandomLengthString(8);
    CKeysNValues pairs;
    pairs.SetSeperator(separator);
    pairs.Set(data.ConsumeRemainingBytesAsString(), keepsBackslash);
    Expect(pairs.IsEmpty() == pairs.Get().empty(), "pairs pack into a text");

    pairs.SetKey(key, value);
    std::string got;
    Expect(pairs.GetKey(key, got) == 1 && got == value, "a value that was set is found");
    for (std::size_t left = pairs.Get().size() + 1; pairs.GetKey(key, got) == 1; --left) {
        Expect(left > 0, "a key can be removed");
        pairs.RemoveKey(key);
    }
    pairs.RemoveAllKeys();
    Expect(pairs.IsEmpty(), "all keys can be removed");
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    if (data.ConsumeBool()) {
        zorby::CheckFile(data);
    } else {
        zorby::CheckPairs(data);
    }
    return 0;
}
