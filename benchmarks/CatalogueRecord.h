#pragma once

#include <zorby/record/Pmarc.h>

#include <string_view>
#include <utility>
#include <vector>

namespace zorby::bench {

// One field as a program that builds a record has it.
struct FieldData {
    int tag;
    std::string_view indicators;                               // empty for a control field
    std::vector<std::pair<char, std::string_view>> subfields;  // one without a code for its text
};

// A book's record of 40 fields, its leader not counted, in MARC-8.
const std::vector<FieldData>& CatalogueRecord();

void AddField(const FieldData& field, CPmarc& record);

// CatalogueRecord with its leader.
CPmarc BuildCatalogueRecord();

}  // namespace zorby::bench
