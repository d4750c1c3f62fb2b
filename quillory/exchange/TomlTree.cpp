#include <quillory/exchange/Nesting.h>
#include <quillory/exchange/TextPlace.h>
#include <quillory/exchange/TomlTree.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Listed.h>
#include <quillory/text/NearestNames.h>

#include <algorithm>

#include <toml++/toml.h>

namespace quillory {
namespace {

LineColumn PlaceOf(const toml::source_region& region) {
    return {region.begin.line, region.begin.column};
}

TomlNode NodeOf(const toml::node& value);

void AddMembers(const toml::table& table, TomlNode& node) {
    for (const auto& [key, value] : table) {
        node.members.push_back({std::string(key.str()), PlaceOf(key.source()), NodeOf(value)});
    }
}

// The text of a value is not to be taken for that of its kind: 1 is no "1".
TomlNode NodeOf(const toml::node& value) {
    TomlNode node{TomlKind::Other, PlaceOf(value.source()), {}, {}, {}};
    if (const auto* table = value.as_table()) {
        node.kind = TomlKind::Table;
        AddMembers(*table, node);
    } else if (const auto* array = value.as_array()) {
        node.kind = TomlKind::Array;
        for (const toml::node& item : *array) node.items.push_back(NodeOf(item));
    } else if (const auto* text = value.as_string()) {
        node.kind = TomlKind::Text;
        node.text = text->get();
    } else if (const auto* number = value.as_integer()) {
        node.kind = TomlKind::Number;
        node.text = std::to_string(number->get());
    } else if (const auto* flag = value.as_boolean()) {
        node.kind = TomlKind::Flag;
        node.text = flag->get() ? "true" : "false";
    }
    return node;
}

}  // namespace

const TomlNode* TomlNode::Get(std::string_view key) const {
    const auto found = std::ranges::find(members, key, &TomlMember::key);
    return found == members.end() ? nullptr : &found->value;
}

const std::string& TomlNode::Text() const {
    if (kind == TomlKind::Text || kind == TomlKind::Number || kind == TomlKind::Flag) return text;
    throw TomlFault(at, {FaultCode::kTaskValue});
}

void CheckKeys(const TomlNode& table, const std::vector<std::string_view>& keys) {
    for (const TomlMember& member : table.members) {
        if (std::ranges::find(keys, member.key) != keys.end()) continue;
        const std::string near = PerhapsMeant(member.key, {keys.begin(), keys.end()});
        throw TomlFault(member.at, {FaultCode::kTaskKey, {}, member.key, Listed(keys) + near});
    }
}

TomlNode ReadToml(std::string_view toml, const std::string& name) {
    if (const auto at = TooDeepInToml(toml)) {
        throw InFile(name,
                     TomlFault(TextPlace().After(toml.substr(0, *at)),
                               {FaultCode::kTooDeep, {}, {}, std::to_string(kDeepestNesting)}));
    }
    try {
        return NodeOf(toml::parse(toml));
    } catch (const toml::parse_error& error) {
        throw InFile(name,
                     TomlFault(PlaceOf(error.source()),
                               {FaultCode::kMalformedToml, {}, std::string(error.description())}));
    }
}

FileError InFile(const std::string& name, const TomlFault& fault) {
    const std::string place =
        std::to_string(fault.At().line) + ":" + std::to_string(fault.At().column);
    return FileError(name + ":" + place + ": " + fault.what());
}

}  // namespace quillory
