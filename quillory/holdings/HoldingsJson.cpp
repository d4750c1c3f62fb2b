#include <quillory/exchange/JsonFault.h>
#include <quillory/exchange/Nesting.h>
#include <quillory/faults/FaultCode.h>
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

LineFault LineFaultOf(const ItemFault& fault) {
    return {{fault.code, fault.place, fault.found, fault.allowed}, fault.offset};
}

// `names` is how many members the object has, one of the same name again included.
std::optional<LineFault> Parse(std::string_view line, Json& object, std::size_t& names) {
    const auto count = [&names](int depth, Json::parse_event_t event, const Json&) {
        if (depth == 1 && event == Json::parse_event_t::key) ++names;
        return true;
    };
    if (const auto at = TooDeepInJson(line)) {
        return LineFault{{FaultCode::kTooDeep, {}, {}, std::to_string(kDeepestNesting)}, *at};
    }
    try {
        object = Json::parse(line, count);
        if (const auto nul = NulByteOf(line)) return LineFaultOf(*nul);
        return std::nullopt;
    } catch (const Json::parse_error& error) {
        return LineFaultOf(MalformedJson(error.what(), error.byte));
    } catch (const Json::exception& error) {
        return LineFault{LineFaultOf(MalformedJson(error.what(), 0)).fault};
    }
}

}  // namespace

std::optional<LineFault> ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take) {
    Json object;
    std::size_t names = 0;
    if (auto fault = Parse(line, object, names)) return fault;
    if (!object.is_object()) return LineFault{{FaultCode::kHoldingsNoObject}, 0};
    if (names != object.size()) return LineFault{{FaultCode::kHoldingsSameNames}};
    for (const auto& [name, member] : object.items()) {
        const Json values = member.is_array() ? member : Json::array({member});
        for (const Json& value : values) {
            std::string text;
            if (value.is_null()) continue;
            if (!TakeValue(value, text)) {
                return LineFault{{FaultCode::kHoldingsNoText, {}, name}};
            }
            if (!text.empty()) take(name, std::move(text));
        }
    }
    return std::nullopt;
}

}  // namespace quillory
