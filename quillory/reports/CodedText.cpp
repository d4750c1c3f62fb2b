#include <quillory/reports/CodedText.h>

#include <algorithm>

namespace quillory {
namespace {

std::string Text(const Document& document, const char* key) {
    return document.contains(key) ? document.at(key).get<std::string>() : "";
}

std::string Joined(const Document& items) {
    std::string joined;
    for (const Document& item : items) {
        if (!joined.empty()) joined += ", ";
        joined += item.is_string() ? item.get<std::string>() : item.dump();
    }
    return joined;
}

std::string CodeLine(const Document& code) {
    const std::string remark = RemarkText(Text(code, "status"), Text(code, "since"),
                                          Text(code, "until"), Text(code, "use"));
    return "    " + Text(code, "code") + "  " + Text(code, "text") +
           (remark.empty() ? "" : "  (" + remark + ")") + "\n";
}

std::string Capacity(const Document& element) {
    const int width = element.at("width").get<int>();
    std::string size = std::to_string(width) + (width == 1 ? " character" : " characters");
    if (!element.contains("code_length")) return size;
    const int count = width / std::max(element.at("code_length").get<int>(), 1);
    return count > 1 ? "up to " + std::to_string(count) + " codes" : size;
}

std::string Title(const Document& element) {
    std::string title = Text(element, "place") + "  " + Text(element, "name");
    const std::string forms = Joined(element.at("forms"));
    return forms.empty() || forms == "all" ? title : title + " (" + forms + ")";
}

std::string Facts(const Document& element) {
    const Document& parts = element.at("parts");
    std::string facts = Capacity(element);
    if (!parts.empty()) facts += (parts.size() == 1 ? "; part " : "; parts ") + Joined(parts);
    if (element.contains("also")) facts += "; also " + Text(element, "also");
    if (element.contains("former_name")) facts += "; was " + Text(element, "former_name");
    return facts;
}

}  // namespace

std::string RemarkText(const std::string& status, const std::string& since,
                       const std::string& until, const std::string& use) {
    if (status == "newer") {
        return since.empty() ? "valid, but not in the library's list"
                             : "newer than the library's list, of " + since;
    }
    if (status != "obsolete") return "";
    std::string replaced = use;
    for (std::size_t blank = 0; (blank = replaced.find(' ', blank)) != replaced.npos; blank += 4) {
        replaced.replace(blank, 1, " or ");
    }
    return "obsolete" + (until.empty() ? "" : " since " + until) +
           (replaced.empty() ? "" : ", now " + replaced);
}

std::string ElementsText(const Document& elements) {
    std::string text;
    for (const Document& element : elements) {
        if (!text.empty()) text += "\n";
        text += Title(element) + "\n    " + Facts(element) + "\n";
        for (const Document& code : element.at("codes")) text += CodeLine(code);
    }
    return text;
}

std::string ElementNamesText(const Document& elements) {
    std::size_t width = 0;
    for (const Document& element : elements) width = std::max(width, Title(element).size());
    std::string text;
    for (const Document& element : elements) {
        std::string title = Title(element);
        title.resize(width, ' ');
        text += title + "  " + Facts(element) + "\n";
    }
    return text;
}

}  // namespace quillory
