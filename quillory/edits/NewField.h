#pragma once

#include <quillory/edits/Parameters.h>

#include <string>
#include <string_view>

namespace quillory {

// A field that an operation puts in, in UTF-8.
struct NewField {
    std::string tag;
    std::string content;
};

// A field from its place and what was said of its content: "10$aTitle", the text of a subfield in
// a field with blank indicators, or all of a control field. Throws ParameterError.
NewField ReadNewField(const Parameters& parameters, std::string_view placeName,
                      std::string_view textName);

inline constexpr std::string_view kBlankIndicators = "  ";

}  // namespace quillory
