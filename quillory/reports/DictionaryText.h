#pragma once

#include <quillory/reports/Dictionary.h>

#include <string>

namespace quillory {

// What the dictionaries say, in lines for a person.
std::string FieldText(const Document& field);
std::string SubfieldText(const Document& subfield);
std::string IndicatorText(const Document& indicator);
std::string SearchText(const Document& hits);
std::string HoldingsTypesText(const Document& types);
std::string HoldingsTypeText(const Document& type);

}  // namespace quillory
