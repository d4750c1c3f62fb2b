#include <quillory/jobs/WorkformHindrance.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/workforms/Template.h>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace quillory {
namespace {

constexpr const char* kLocked = "is locked by another program that is changing it";
constexpr std::size_t kLongestName = 200;  // characters

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

bool IsPrintable(char c) {
    return c >= ' ' && c <= '~';
}

template <class Test>
std::string HindranceIn(const char* field, std::string_view content, Test isGood) {
    const auto bad = std::find_if_not(content.begin(), content.end(), isGood);
    if (bad == content.end()) return {};
    char text[64];
    std::snprintf(text, sizeof text, "has the byte 0x%02X at position %02d of its %s",
                  static_cast<unsigned>(static_cast<unsigned char>(*bad)),
                  static_cast<int>(bad - content.begin()), field);
    return text;
}

std::string HindranceOfControlFields(const zorby::CTemplate& workform) {
    const auto isData = [](char c) { return !IsControl(c); };
    std::string leader, field006, field007, field008;
    workform.GetMainMaterial().GetAll(leader, field007, field008, field006);
    std::string hindrance = HindranceIn("Leader", leader, IsPrintable);
    const auto check = [&](const char* field, const std::string& content) {
        if (hindrance.empty()) hindrance = HindranceIn(field, content, isData);
    };
    check("006", field006);
    check("007", field007);
    check("008", field008);
    for (int i = 0; i < workform.GetAMList().GetSize(); ++i) {
        workform.GetAMList().GetAt(i)->GetAll(field006, field007);
        check("006", field006);
        check("007", field007);
    }
    return hindrance;
}

}  // namespace

std::string LockedText(const std::string& name) {
    return "\"" + name + "\" " + kLocked;
}

std::string HindranceOfName(const std::string& name, bool force, const WorkformStore& store) {
    if (name.empty()) return "is no name";
    if (name.size() > kLongestName) {
        return "has " + std::to_string(name.size()) + " characters, and a name at most " +
               std::to_string(kLongestName);
    }
    const SaveObstacle obstacle = store.ObstacleTo(name, kAnybody);
    if (obstacle == kStandardName) {
        return "is the name of a standard workform, which is not to be changed";
    }
    if (obstacle == kNoFurtherId) return "can't be saved: there is no further ID for a workform";
    if (const auto known = store.FindByName(name); known && !force) {
        return "is already there, " + std::to_string(known->id) + "; --force replaces it";
    }
    return obstacle == kLockedByOther ? kLocked : "";
}

std::string HindranceOfBlock(const std::string& block) {
    zorby::MemoryViewStream stream(block);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    zorby::CTemplate workform;
    workform.Serialize(archive);
    return HindranceOfControlFields(workform);
}

}  // namespace quillory
