#include <zorby/format/detail/DisplayText.h>

namespace zorby {
namespace {

void SetWithParentheses(std::string_view outside, std::string_view inside, std::string& text) {
    text.assign(outside).append(" (").append(inside).append(")");
}

}  // namespace

void DisplayText(EDISPLAYOPTIONS option, std::string_view name, std::string_view code,
                 std::string& text) {
    switch (option) {
        case EDO_NameAndCode:
            return SetWithParentheses(name, code, text);
        case EDO_CodeAndName:
            return SetWithParentheses(code, name, text);
        case EDO_CodeOnly:
            text = code;
            return;
        case EDO_NameOnly:
            break;
    }
    text = name;
}

}  // namespace zorby
