#pragma once

#include <quillory/text/JsonWriter.h>
#include <zorby/format/DisplayOptions.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

// What the dictionary in force says of fields, subfields and indicators, in UTF-8. A blank
// indicator is "#".
struct IndicatorValueDocument {
    std::string value;
    std::string name;
    bool isDefault = false;
};

struct IndicatorDocument {
    std::string tag;
    int indicator = 0;  // 1 or 2
    std::string name;
    std::string explanation;  // may be empty
    std::vector<IndicatorValueDocument> values;
};

struct SubfieldDocument {
    std::string tag;
    std::string code;
    std::string name;
    bool repeatable = false;
    bool mandatory = false;
    bool prompted = false;
    bool priority = false;
    bool userDefined = false;
};

struct FieldDocument {
    std::string tag;
    std::string name;
    std::string explanation;  // may be empty
    bool repeatable = false;
    bool mandatory = false;
    bool userDefined = false;
    std::string codes;  // of its subfields
    std::vector<IndicatorDocument> indicators;
    std::optional<std::vector<SubfieldDocument>> subfields;  // where they are asked for
};

// Nothing for what the dictionary does not know.
std::optional<FieldDocument> DescribeField(unsigned tag, zorby::EDISPLAYOPTIONS display,
                                           bool withSubfields);
std::optional<SubfieldDocument> DescribeSubfield(unsigned tag, char code,
                                                 zorby::EDISPLAYOPTIONS display);
std::optional<IndicatorDocument> DescribeIndicator(unsigned tag, int which,
                                                   zorby::EDISPLAYOPTIONS display);

std::string ToText(const FieldDocument& field);
std::string ToText(const SubfieldDocument& subfield);
std::string ToText(const IndicatorDocument& indicator);

void ToJson(const FieldDocument& field, JsonWriter& json);
void ToJson(const SubfieldDocument& subfield, JsonWriter& json);
void ToJson(const IndicatorDocument& indicator, JsonWriter& json);
void ToJson(const IndicatorValueDocument& value, JsonWriter& json);

}  // namespace quillory
