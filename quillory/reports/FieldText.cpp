#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/ScreenText.h>

namespace quillory {
namespace {

// Both have these facts.
template <class Document>
std::string FieldFacts(const Document& document) {
    std::string facts = document.repeatable ? "repeatable" : "not repeatable";
    if (document.mandatory) facts += ", required";
    if (document.userDefined) facts += ", user-defined";
    return facts;
}

}  // namespace

std::string ToText(const IndicatorDocument& indicator) {
    std::string text = indicator.name + "\n";
    if (!indicator.explanation.empty()) text += Paragraph(indicator.explanation, 4);
    for (const IndicatorValueDocument& value : indicator.values) {
        text += "    " + value.value + "  " + value.name;
        text += value.isDefault ? "  (default)\n" : "\n";
    }
    return text;
}

std::string ToText(const SubfieldDocument& subfield) {
    std::string text = "    " + Padded(subfield.name + " ", 48) + FieldFacts(subfield);
    if (subfield.prompted) text += ", prompted";
    return text + "\n";
}

std::string ToText(const FieldDocument& field) {
    std::string text = field.name + ", " + FieldFacts(field) + "\n";
    if (!field.explanation.empty()) text += Paragraph(field.explanation, 4);
    for (const IndicatorDocument& indicator : field.indicators) text += ToText(indicator);
    if (field.subfields) {
        text += "Subfields\n";
        for (const SubfieldDocument& subfield : *field.subfields) text += ToText(subfield);
    } else if (!field.codes.empty()) {
        text += "Subfields: " + field.codes + "\n";
    }
    return text;
}

}  // namespace quillory
