#pragma once

#include <quillory/text/Losses.h>

#include <string>
#include <string_view>

namespace quillory {

// Append text of a record, in UTF-8, as it stands in XML (in elements and attributes alike) and
// between the quotation marks of JSON. A byte that is no character becomes U+FFFD, and a character
// that XML 1.0 has not (controls, U+FFFE, U+FFFF) the text &#xXXXX;; both are counted.
void AppendXmlText(std::string_view text, std::string& out, Losses& losses);
void AppendJsonText(std::string_view text, std::string& out, Losses& losses);

// The same for a single sign, an indicator or a subfield code, which becomes no longer text.
void AppendXmlSign(std::string_view sign, std::string& out, Losses& losses);

}  // namespace quillory
