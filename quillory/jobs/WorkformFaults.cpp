#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/text/QmText.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

constexpr std::size_t kLongestName = 200;  // characters

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

struct ControlFieldText {
    Place place;
    std::string content;
};

std::vector<ControlFieldText> ControlFieldsOf(const zorby::CTemplate& workform) {
    std::string leader;
    std::string field006;
    std::string field007;
    std::string field008;
    workform.GetMainMaterial().GetAll(leader, field007, field008, field006);
    std::vector<ControlFieldText> fields{{Place::OfLeader(), leader},
                                         {Place::OfField("006"), field006},
                                         {Place::OfField("007"), field007},
                                         {Place::OfField("008"), field008}};
    for (int i = 0; i < workform.GetAMList().GetSize(); ++i) {
        workform.GetAMList().GetAt(i)->GetAll(field006, field007);
        fields.push_back({Place::OfField("006"), field006});
        fields.push_back({Place::OfField("007"), field007});
    }
    return fields;
}

// The leader is plain ASCII, the other fields are without control characters.
bool IsAllowed(char c, const Place& place) {
    return place.IsLeader() ? ' ' <= c && c <= '~' : !IsControl(c);
}

std::string ByteText(char byte) {
    char text[8];
    std::snprintf(text, sizeof text, "0x%02X",
                  static_cast<unsigned>(static_cast<unsigned char>(byte)));
    return text;
}

}  // namespace

Fault FaultOfLock(const std::string& name) {
    return {FaultCode::kLockedWorkform, {}, QmToUtf8(name)};
}

Fault FaultOfName(const std::string& name, bool force, const WorkformStore& store) {
    const std::string text = QmToUtf8(name);
    if (name.find_first_not_of(' ') == name.npos) return {FaultCode::kNoName};
    if (name.size() > kLongestName) {
        return {FaultCode::kLongName, {}, text, std::to_string(kLongestName)};
    }
    const SaveObstacle obstacle = store.ObstacleTo(name, kAnybody);
    if (obstacle == kStandardName) return {FaultCode::kStandardName, {}, text};
    if (obstacle == kNoFurtherId) return {FaultCode::kNoFurtherId, {}, text};
    if (const auto known = store.FindByName(name); known && !force) {
        return {FaultCode::kWorkformThere, {}, text, std::to_string(known->id)};
    }
    return obstacle == kLockedByOther ? FaultOfLock(name) : Fault();
}

Fault FaultOfControlFields(const std::string& block) {
    zorby::MemoryViewStream stream(block);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    zorby::CTemplate workform;
    workform.Serialize(archive);
    return FaultOfControlFields(workform);
}

Fault FaultOfControlFields(const zorby::CTemplate& workform) {
    for (const ControlFieldText& field : ControlFieldsOf(workform)) {
        const auto bad = std::ranges::find_if_not(
            field.content, [&field](char c) { return IsAllowed(c, field.place); });
        if (bad == field.content.end()) continue;
        const int position = static_cast<int>(bad - field.content.begin());
        return {FaultCode::kOddByte, field.place.Positions(position, position),
                QmToUtf8(workform.GetName()), ByteText(*bad)};
    }
    return {};
}

}  // namespace quillory
