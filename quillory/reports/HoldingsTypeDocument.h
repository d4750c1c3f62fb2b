#pragma once

#include <quillory/text/JsonWriter.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

// What is known of the holdings of a library system, in UTF-8.
struct HoldingsElementDocument {
    int id = 0;
    std::string name;
    std::string tag;
    std::string subfield;         // "$a", or "part 2" of a field that has no subfields
    std::string repeatDelimiter;  // between several values; empty where there can't be several
    bool oncePerRecord = false;
    std::string help;
};

struct HoldingsTypeDocument {
    int type = 0;
    std::string name;
    std::vector<std::string> formerNames;
    std::string tags;
    bool isInForce = false;
    std::optional<std::vector<HoldingsElementDocument>> elements;  // where they are asked for
};

// All types, without their elements.
std::vector<HoldingsTypeDocument> DescribeHoldingsTypes();
// One by number or name, with its elements; nothing for one that is unknown.
std::optional<HoldingsTypeDocument> DescribeHoldingsType(const std::string& type);

std::string ToText(const HoldingsTypeDocument& type);
std::string ToText(const std::vector<HoldingsTypeDocument>& types);

void ToJson(const HoldingsTypeDocument& type, JsonWriter& json);
void ToJson(const HoldingsElementDocument& element, JsonWriter& json);

}  // namespace quillory
