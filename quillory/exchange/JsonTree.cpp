#include <quillory/exchange/JsonTree.h>
#include <quillory/exchange/Nesting.h>
#include <quillory/faults/FaultCode.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

// Makes a tree of what the parser finds.
class TreeBuilder {
public:
    explicit TreeBuilder(JsonNode& root) : open_{&root} {}

    bool null() { return Take(JsonKind::Null); }
    bool boolean(bool) { return Take(JsonKind::Other); }
    bool number_integer(std::int64_t number) {
        return Take(JsonKind::Whole, std::to_string(number));
    }
    bool number_unsigned(std::uint64_t number) {
        return Take(JsonKind::Whole, std::to_string(number));
    }
    bool number_float(double, const std::string&) { return Take(JsonKind::Other); }
    bool string(std::string& text) { return Take(JsonKind::Text, std::move(text)); }
    bool binary(const std::vector<std::uint8_t>&) { return Take(JsonKind::Other); }
    bool start_array(std::size_t) { return Open(JsonKind::Array); }
    bool start_object(std::size_t) { return Open(JsonKind::Object); }
    bool end_array() { return Close(); }
    bool end_object() { return Close(); }

    bool key(std::string& name) {
        open_.back()->members.push_back({std::move(name), {}});
        return true;
    }

    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::json::parse_error& error) {
        const ItemFault fault = MalformedJson(error.what(), position);
        fault_ = JsonFault{static_cast<const Fault&>(fault), fault.offset};
        return false;
    }
    // A number out of range, mostly.
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
        const ItemFault fault = MalformedJson(error.what(), 0);
        fault_ = JsonFault{static_cast<const Fault&>(fault)};
        return false;
    }

    const std::optional<JsonFault>& Malformed() const { return fault_; }
    bool IsTooDeep() const { return isTooDeep_; }

private:
    // Where the next value goes.
    JsonNode& Next() {
        JsonNode& node = *open_.back();
        if (node.kind == JsonKind::Object) return node.members.back().value;
        return node.kind == JsonKind::Array ? node.items.emplace_back() : node;
    }

    bool Take(JsonKind kind, std::string text = {}) {
        JsonNode& node = Next();
        node.kind = kind;
        node.text = std::move(text);
        return true;
    }

    bool Open(JsonKind kind) {
        isTooDeep_ = open_.size() > kDeepestNesting;
        if (isTooDeep_) return false;
        JsonNode& node = Next();
        node.kind = kind;
        open_.push_back(&node);
        return true;
    }

    bool Close() {
        open_.pop_back();
        return true;
    }

    std::vector<JsonNode*> open_;  // the root, and what has begun and not ended
    std::optional<JsonFault> fault_;
    bool isTooDeep_ = false;
};

}  // namespace

const JsonNode* JsonNode::Get(std::string_view name) const {
    const auto found = std::find_if(members.rbegin(), members.rend(),
                                    [&](const JsonMember& member) { return member.name == name; });
    return found == members.rend() ? nullptr : &found->value;
}

std::optional<JsonFault> ReadJson(std::string_view json, JsonNode& root) {
    root = {};
    TreeBuilder builder(root);
    nlohmann::json::sax_parse(json.begin(), json.end(), &builder);
    if (!builder.IsTooDeep()) return builder.Malformed();
    return JsonFault{{FaultCode::kTooDeep, {}, {}, std::to_string(kDeepestNesting)},
                     TooDeepInJson(json)};
}

}  // namespace quillory
