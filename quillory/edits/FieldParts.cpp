#include <quillory/edits/FieldParts.h>
#include <quillory/exchange/Subfields.h>

#include <algorithm>

namespace quillory {

FieldParts PartsOf(std::string_view content) {
    FieldParts field;
    field.head = content.substr(0, content.find(zorby::kDelimiter));
    ForEachPart(content.substr(field.head.size()),
                [&field](std::string_view part) { field.parts.push_back(part); });
    return field;
}

std::string Joined(const FieldParts& field) {
    std::string content(field.head);
    for (const std::string_view part : field.parts) content += part;
    return content;
}

char CodeOf(std::string_view part) {
    return part.size() > 1 ? part[1] : '\0';
}

std::string_view TextOf(std::string_view part) {
    return part.substr(std::min<std::size_t>(2, part.size()));
}

std::string Part(char code, std::string_view text) {
    std::string part{zorby::kDelimiter, code};
    return part.append(text);
}

bool HasSubfield(std::string_view content, char code, std::string_view text) {
    bool has = false;
    ForEachSubfield(content, [&](char known, std::string_view value) {
        has = has || (known == code && value == text);
    });
    return has;
}

}  // namespace quillory
