#pragma once

#include <quillory/coded/Decoder.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/reports/Dictionary.h>

#include <vector>

namespace quillory {

// Workforms as documents for a person or a program. Texts are UTF-8; a blank indicator, and a blank
// of a control field, is "#".

// A workform's line in a list: ID, name, material, and the name of the base unless it has none.
Document WorkformRow(const WorkformEntry& entry, const zorby::CTemplate& workform);

// All of a workform. What a new record gets of a field stands there with the prompts, priorities
// and help that hold for it, whether they are the workform's own or its base's; "other_fields" are
// those that only have something of the workform's own.
Document DescribeWorkform(const WorkformEntry& entry, const zorby::CTemplate& workform,
                          const Decoder& decoder);

// The control fields of a new record, spelled out, in their order: Leader, 006, 007, 008 and those
// of additional materials. Without a field that is blank.
struct CodedContent {
    std::string content;
    DecodedField decoded;
};
std::vector<CodedContent> ControlFieldsOf(const zorby::CTemplate& workform, const Decoder& decoder);

}  // namespace quillory
