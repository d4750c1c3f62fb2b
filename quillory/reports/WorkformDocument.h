#pragma once

#include <quillory/coded/Decoder.h>
#include <quillory/reports/RecordScreen.h>
#include <quillory/reports/WorkformRows.h>

namespace quillory {

// A workform as a person or a program reads it, in UTF-8. A blank indicator, and a blank of a
// control field, is "#".

// A control field of a new record, spelled out.
struct WorkformControlField {
    std::string content;
    DecodedField decoded;
};

// What holds for a subfield. The help may be empty.
struct WorkformSubfield {
    std::string code;
    std::string name;
    bool isPrompted = false;
    bool isPriority = false;
    std::string rules;
    std::string reminders;
    std::string examples;
    std::optional<std::string> data;  // what a new record gets
};

struct WorkformField {
    std::string tag;
    std::string name;
    bool isPriority = false;
    std::vector<WorkformSubfield> subfields;
    std::optional<std::string> indicators;  // what a new record gets
};

// What a workform has of its own for an indicator. Each text may be empty.
struct WorkformIndicator {
    std::string tag;
    int indicator = 0;  // 1 or 2
    std::string name;
    std::string defaultValue;
    std::string explanation;
};

// All of a workform. The prompts, priorities and help of a field are those in force, whether they
// are the workform's own or its base's.
struct WorkformDocument {
    WorkformRow row;
    // Leader, 006, 007, 008 and those of additional materials, except those that are blank.
    std::vector<WorkformControlField> controlFields;
    std::vector<WorkformField> fields;       // of a new record
    std::vector<WorkformField> otherFields;  // for which the workform has help of its own
    std::vector<WorkformIndicator> indicators;
    int holdings = 0;  // copies
};

WorkformDocument DescribeWorkform(const WorkformEntry& entry, const zorby::CTemplate& workform,
                                  const Decoder& decoder);

std::string ToText(const WorkformDocument& workform, const ScreenOptions& screen);

void ToJson(const WorkformDocument& workform, JsonWriter& json);
void ToJson(const WorkformField& field, JsonWriter& json);
void ToJson(const WorkformSubfield& subfield, JsonWriter& json);
void ToJson(const WorkformIndicator& indicator, JsonWriter& json);
void ToJson(const WorkformControlField& field, JsonWriter& json);
void ToJson(const DecodedElement& element, JsonWriter& json);

}  // namespace quillory
