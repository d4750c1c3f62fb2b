#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/HoldingsJson.h>

#include <set>
#include <span>
#include <utility>

namespace quillory {
namespace {

bool HasSameNames(const JsonNode& object) {
    std::set<std::string_view> names;
    for (const JsonMember& member : object.members) names.insert(member.name);
    return names.size() != object.members.size();
}

// The items of a list, or the value itself.
std::span<JsonNode> ValuesOf(JsonNode& member) {
    return member.kind == JsonKind::Array ? std::span(member.items) : std::span(&member, 1);
}

}  // namespace

std::optional<JsonFault> ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take) {
    JsonNode object;
    if (auto fault = ReadJson(line, object)) return fault;
    if (const auto nul = NulByteOf(line)) {
        return JsonFault{static_cast<const Fault&>(*nul), nul->offset};
    }
    if (object.kind != JsonKind::Object) return JsonFault{{FaultCode::kHoldingsNoObject}, 0};
    if (HasSameNames(object)) return JsonFault{{FaultCode::kHoldingsSameNames}};
    for (auto& [name, member] : object.members) {
        for (JsonNode& value : ValuesOf(member)) {
            if (value.kind == JsonKind::Null) continue;
            if (value.kind != JsonKind::Text && value.kind != JsonKind::Whole) {
                return JsonFault{{FaultCode::kHoldingsNoText, {}, name}};
            }
            if (!value.text.empty()) take(name, std::move(value.text));
        }
    }
    return std::nullopt;
}

}  // namespace quillory
