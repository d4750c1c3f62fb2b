#pragma once

#include <quillory/exchange/JsonFault.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

struct JsonMember;

// `Whole` is a whole number of up to 64 bits, `Other` any other number, true or false.
enum class JsonKind : std::uint8_t { Null, Text, Whole, Other, Array, Object };

// A value of a JSON text.
struct JsonNode {
    JsonKind kind = JsonKind::Null;
    std::string text;                 // of a text or a whole number
    std::vector<JsonNode> items;      // of an array
    std::vector<JsonMember> members;  // of an object, in their order

    // The last member of that name. Null if the object has none.
    const JsonNode* Get(std::string_view name) const;
};

struct JsonMember {
    std::string name;
    JsonNode value;
};

// Reads a text up to its end or a NUL byte. Result: what is wrong, if anything is; then the tree
// has what stands before that.
std::optional<JsonFault> ReadJson(std::string_view json, JsonNode& root);

}  // namespace quillory
