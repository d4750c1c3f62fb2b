#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The content of a field, taken apart. The views look into the content.
struct FieldParts {
    std::string_view head;                // indicators; all of a control field
    std::vector<std::string_view> parts;  // subfields, each with its delimiter and code
};

FieldParts PartsOf(std::string_view content);
std::string Joined(const FieldParts& field);

// Of a part. The code is one byte, NUL if the part has none.
char CodeOf(std::string_view part);
std::string_view TextOf(std::string_view part);

// A delimiter, the code and the text.
std::string Part(char code, std::string_view text);

// Whether a content has that subfield with just this text.
bool HasSubfield(std::string_view content, char code, std::string_view text);

}  // namespace quillory
