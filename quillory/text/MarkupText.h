#pragma once

#include <quillory/text/Losses.h>
#include <quillory/text/TextBuilder.h>

#include <string>
#include <string_view>

namespace quillory {

// Append text of a record, in UTF-8, as it stands in an element or attribute of XML, and between
// quotation marks in JSON. A byte that belongs to no character becomes U+FFFD. A character that
// can't stand in XML 1.0 (controls, U+FFFE, U+FFFF) becomes the text &#xXXXX; with the ampersand
// escaped. Both are counted.
void AppendXmlText(std::string_view text, TextBuilder& out, Losses& losses);
void AppendJsonText(std::string_view text, std::string& out, Losses& losses);

// The same for the text in front of a delimiter (0x1F), or for all of it if there is none. Result:
// its bytes.
std::size_t AppendXmlSubfield(std::string_view text, TextBuilder& out, Losses& losses);

// The same for a subfield code. What can't stand in XML becomes U+FFFD, since a code is one
// character.
void AppendXmlSign(std::string_view sign, TextBuilder& out, Losses& losses);

}  // namespace quillory
