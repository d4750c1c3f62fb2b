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

}  // namespace

std::string ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take) {
    std::size_t names = 0;
    const auto count = [&names](int depth, Json::parse_event_t event, const Json&) {
        if (depth == 1 && event == Json::parse_event_t::key) ++names;
        return true;
    };
    const Json object = Json::parse(line, count, false);
    if (!object.is_object()) return "no JSON object";
    if (names != object.size()) return "a name more than once";
    for (const auto& [name, member] : object.items()) {
        const Json values = member.is_array() ? member : Json::array({member});
        for (const Json& value : values) {
            std::string text;
            if (value.is_null()) continue;
            if (!TakeValue(value, text)) return name + ": neither a text nor a whole number";
            if (!text.empty()) take(name, std::move(text));
        }
    }
    return {};
}

}  // namespace quillory
