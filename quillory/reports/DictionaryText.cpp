#include <quillory/reports/DictionaryText.h>

#include <algorithm>
#include <sstream>

namespace quillory {
namespace {

std::string Text(const Document& document, const char* key) {
    return document.at(key).get<std::string>();
}

bool Flag(const Document& document, const char* key) {
    return document.at(key).get<bool>();
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size() + 1, width), ' ');
    return text;
}

std::string Flags(const Document& document) {
    std::string flags = Flag(document, "repeatable") ? "repeatable" : "not repeatable";
    if (Flag(document, "mandatory")) flags += ", required";
    if (Flag(document, "user_defined")) flags += ", user-defined";
    return flags;
}

// Words in lines of at most 76 columns behind an indent.
std::string Wrapped(const std::string& text, const std::string& indent) {
    constexpr std::size_t kWidth = 76;
    std::istringstream words(text);
    std::string wrapped;
    std::string line = indent;
    for (std::string word; words >> word;) {
        if (line.size() > indent.size() && line.size() + 1 + word.size() > kWidth) {
            wrapped += line + "\n";
            line = indent;
        }
        if (line.size() > indent.size()) line += ' ';
        line += word;
    }
    return wrapped + line + "\n";
}

}  // namespace

std::string IndicatorText(const Document& indicator) {
    std::string text = Text(indicator, "name") + "\n";
    if (indicator.contains("explanation")) text += Wrapped(Text(indicator, "explanation"), "    ");
    for (const Document& value : indicator.at("values")) {
        text += "    " + Text(value, "value") + "  " + Text(value, "name");
        text += Flag(value, "default") ? "  (default)\n" : "\n";
    }
    return text;
}

std::string SubfieldText(const Document& subfield) {
    std::string text = "    " + Padded(Text(subfield, "name"), 48) + Flags(subfield);
    if (Flag(subfield, "prompted")) text += ", prompted";
    return text + "\n";
}

std::string FieldText(const Document& field) {
    std::string text = Text(field, "name") + ", " + Flags(field) + "\n";
    for (const Document& indicator : field.at("indicators")) text += IndicatorText(indicator);
    if (field.contains("subfields")) {
        text += "Subfields\n";
        for (const Document& subfield : field.at("subfields")) text += SubfieldText(subfield);
    } else if (!Text(field, "codes").empty()) {
        text += "Subfields: " + Text(field, "codes") + "\n";
    }
    return text;
}

std::string SearchText(const Document& hits) {
    std::string text;
    for (const Document& hit : hits) {
        text += Padded(Text(hit, "place"), 8) + Text(hit, "name") + "\n";
    }
    return text;
}

std::string HoldingsTypesText(const Document& types) {
    std::string text;
    for (const Document& type : types) {
        const std::string number = std::to_string(type.at("type").get<int>());
        text += std::string(3 - std::min<std::size_t>(number.size(), 3), ' ') + number + "  ";
        text += Padded(Text(type, "name"), 44) + Text(type, "tags");
        for (const Document& name : type.at("former_names")) {
            text += "  (formerly " + name.get<std::string>() + ")";
        }
        text += Flag(type, "in_force") ? "  in force\n" : "\n";
    }
    return text;
}

std::string HoldingsTypeText(const Document& type) {
    std::string text = HoldingsTypesText(Document::array({type}));
    for (const Document& element : type.at("elements")) {
        text += "  " + std::to_string(element.at("id").get<int>()) + "  " +
                Padded(Text(element, "tag") + " " + Text(element, "subfield"), 12) +
                Text(element, "name");
        if (element.contains("repeat_delimiter")) {
            text += ", several divided by \"" + Text(element, "repeat_delimiter") + "\"";
        }
        if (Flag(element, "once_per_record")) text += ", once a record";
        text += "\n";
        if (!Text(element, "help").empty()) text += Wrapped(Text(element, "help"), "       ");
    }
    return text;
}

}  // namespace quillory
