#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>

namespace quillory {
namespace {

std::string CodeLine(const CodeMeaning& code) {
    const std::string remark = RemarkText(code);
    return "    " + CodeText(code.code) + "  " + code.text +
           (remark.empty() ? "" : "  (" + remark + ")") + "\n";
}

std::string Capacity(const CodedElementDocument& element) {
    const int count = element.width / std::max(element.codeLength, 1);
    if (!element.codes.empty() && count > 1) return "up to " + std::to_string(count) + " codes";
    return std::to_string(element.width) + (element.width == 1 ? " character" : " characters");
}

std::string Title(const CodedElementDocument& element) {
    std::string forms;
    for (const std::string& form : element.forms) forms += (forms.empty() ? "" : ", ") + form;
    const std::string title = element.place + "  " + element.name;
    return forms.empty() || forms == "all" ? title : title + " (" + forms + ")";
}

std::string Facts(const CodedElementDocument& element) {
    std::string facts = Capacity(element);
    const char* lead = element.parts.size() == 1 ? "; part " : "; parts ";
    for (const int part : element.parts) {
        facts += lead + std::to_string(part);
        lead = ", ";
    }
    if (!element.also.empty()) facts += "; also " + element.also;
    if (!element.formerName.empty()) facts += "; was " + element.formerName;
    return facts;
}

// "a b" as "a or b".
std::string Alternatives(std::string_view codes) {
    std::string text;
    for (const char c : codes) text += c == ' ' ? std::string(" or ") : std::string(1, c);
    return text;
}

}  // namespace

std::string_view StatusText(const CodeMeaning& code) {
    if (code.state == CodeState::Obsolete) return "obsolete";
    if (code.state == CodeState::Newer) return "newer";
    return code.published ? "current" : "local";
}

std::string CodeText(std::string_view code) {
    std::string text(code);
    std::replace(text.begin(), text.end(), ' ', '#');
    return text;
}

std::string RemarkText(const CodeMeaning& code) {
    if (code.state == CodeState::Newer) {
        return code.since.empty() ? "valid, but not in the library's list"
                                  : "newer than the library's list, of " + code.since;
    }
    if (code.state != CodeState::Obsolete) return "";
    return "obsolete" + (code.until.empty() ? "" : " since " + code.until) +
           (code.use.empty() ? "" : ", now " + Alternatives(code.use));
}

std::string ToText(const CodedElements& elements) {
    std::string text;
    for (const CodedElementDocument& element : elements) {
        if (!text.empty()) text += "\n";
        text += Title(element) + "\n    " + Facts(element) + "\n";
        for (const CodeMeaning& code : element.codes) text += CodeLine(code);
    }
    return text;
}

std::string ToBriefText(const CodedElements& elements) {
    const std::size_t width = Widest(elements, Title);
    std::string text;
    for (const CodedElementDocument& element : elements) {
        text += Padded(Title(element), width) + "  " + Facts(element) + "\n";
    }
    return text;
}

}  // namespace quillory
