#pragma once

#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/copies/HoldingsDataRecord.h>
#include <zorby/record/CommFormat.h>

#include <string>
#include <vector>

namespace quillory {

// A field that a copy is written to, in UTF-8 as the copy is.
struct CopyField {
    std::string tag;
    std::string content;
};

// The fields of a copy in the form of a system: one for each tag. `origin` are the fields that the
// copy was read from, if it was read from fields: their indicators stay unless the settings have
// some for the system.
std::vector<CopyField> FieldsOfCopy(const zorby::CHoldingsDataRecord& copy,
                                    const HoldingsSystem& system,
                                    const std::vector<zorby::CommFormatField>& origin);

}  // namespace quillory
