#pragma once

#include <quillory/text/YazConverter.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Converts a letter of MARC-8's default sets, ASCII and Extended Latin (ANSEL), with the diacritics
// before it, as libyaz does: so libyaz need not be loaded for a text in a Latin script. Nothing if
// anything else is among them.
std::optional<YazConverter::Outcome> DecodeInDefaultSets(std::string_view marc8, std::string& utf8);
// Whether a byte is a diacritic there. However many of them stand in a row, they are kIncomplete.
bool IsDefaultDiacritic(char marc8);
// Whether a text is nothing but letters and other signs of these sets, each under at most one
// diacritic. Nothing of it is lost when it is converted.
bool IsInDefaultSets(std::string_view text);

}  // namespace quillory
