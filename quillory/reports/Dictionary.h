#pragma once

#include <zorby/format/DisplayOptions.h>

#include <nlohmann/json.hpp>

#include <string>

namespace quillory {

// What the dictionaries say, as a document that is printed for a person or given to a program.
// Texts are UTF-8; a blank indicator is "#".
using Document = nlohmann::ordered_json;

// Each is null for what the dictionary does not know.
Document DescribeField(unsigned tag, zorby::EDISPLAYOPTIONS display, bool withSubfields);
Document DescribeSubfield(unsigned tag, char code, zorby::EDISPLAYOPTIONS display);
Document DescribeIndicator(unsigned tag, int which, zorby::EDISPLAYOPTIONS display);

// All fields, subfields, indicators and their values whose names have all the words, in any case.
Document SearchDictionary(const std::string& words, zorby::EDISPLAYOPTIONS display);

// The holdings types, or the elements of one, by number or name.
Document DescribeHoldingsTypes();
Document DescribeHoldingsType(const std::string& type);

}  // namespace quillory
