#include <quillory/checks/CodedValue.h>
#include <quillory/coded/FreeValues.h>

#include <algorithm>

namespace quillory {
namespace {

std::size_t CodeLength(const CodeLists& lists, const Element& element) {
    return static_cast<std::size_t>(std::max(lists.CodeLengthOf(element), 1));
}

}  // namespace

bool IsAllowed(const CodeLists& lists, const Element& element, std::string_view value) {
    if (element.IsUndefined()) return IsAll(value, ' ') || IsAll(value, kFill);
    if (const auto freeValue = ReadFreeValue(element.parts.front(), value)) return freeValue->fits;
    const auto codes = lists.SplitCodes(element, value);
    return std::all_of(codes.begin(), codes.end(), [&](std::string_view code) {
        return lists.StateOf(element, code) != CodeState::Unknown;
    });
}

std::string Protected(const CodeLists& lists, const Element& element, std::string_view before,
                      std::string_view after) {
    const std::size_t length = CodeLength(lists, element);
    if (IsAllowed(lists, element, before)) return std::string(before);
    std::string value(after);
    if (element.IsUndefined() || length >= before.size()) return value;
    // An element of several codes: each of them counts for itself.
    for (std::size_t i = 0; i + length <= before.size(); i += length) {
        const std::string_view code = before.substr(i, length);
        const bool isKept = !IsAll(code, ' ') && lists.StateOf(element, code) != CodeState::Unknown;
        value.replace(i, length, isKept ? std::string(code) : std::string(length, ' '));
    }
    return IsAll(value, ' ') ? std::string(after) : value;
}

std::string ValueText(const CodeLists& lists, const Element& element, std::string_view value) {
    if (element.IsUndefined()) return "";
    if (const auto freeValue = ReadFreeValue(element.parts.front(), value)) return freeValue->text;
    std::string text;
    for (const CodeMeaning& code : lists.CodesIn(element, value)) {
        if (code.text.empty()) continue;
        if (!text.empty()) text += "; ";
        text += code.text;
    }
    return text;
}

}  // namespace quillory
