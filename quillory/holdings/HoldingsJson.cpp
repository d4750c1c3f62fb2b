#include <quillory/exchange/JsonFault.h>
#include <quillory/holdings/HoldingsJson.h>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <utility>

namespace quillory {
namespace {

using Json = nlohmann::ordered_json;

bool TakeValue(const Json& value, std::string& text) {
    if (value.is_string()) {
        text = value.get<std::string>();
    } else if (value.is_number_integer()) {
        text = value.dump();
    } else {
        return false;
    }
    return true;
}

// `names` is how many members the object has, one of the same name again included.
std::optional<HoldingsFault> Parse(std::string_view line, Json& object, std::size_t& names) {
    const auto count = [&names](int depth, Json::parse_event_t event, const Json&) {
        if (depth == 1 && event == Json::parse_event_t::key) ++names;
        return true;
    };
    try {
        object = Json::parse(line, count);
        const auto nul = NulByteOf(line);
        if (!nul) return std::nullopt;
        return HoldingsFault{FaultReason(*nul), nul->offset};
    } catch (const Json::parse_error& error) {
        const ItemFault fault = MalformedJson(error.what(), error.byte);
        return HoldingsFault{FaultReason(fault), fault.offset};
    } catch (const Json::exception& error) {
        return HoldingsFault{FaultReason(MalformedJson(error.what(), 0))};
    }
}

}  // namespace

std::optional<HoldingsFault> ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take) {
    Json object;
    std::size_t names = 0;
    if (auto fault = Parse(line, object, names)) return fault;
    if (!object.is_object()) return HoldingsFault{"no JSON object", 0};
    if (names != object.size()) return HoldingsFault{"a name more than once"};
    for (const auto& [name, member] : object.items()) {
        const Json values = member.is_array() ? member : Json::array({member});
        for (const Json& value : values) {
            std::string text;
            if (value.is_null()) continue;
            if (!TakeValue(value, text)) {
                return HoldingsFault{name + ": neither a text nor a whole number"};
            }
            if (!text.empty()) take(name, std::move(text));
        }
    }
    return std::nullopt;
}

}  // namespace quillory
