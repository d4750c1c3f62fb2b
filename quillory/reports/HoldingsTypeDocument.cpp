#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/places/Tag.h>
#include <quillory/reports/HoldingsTypeDocument.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/QmText.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

namespace quillory {
namespace {

// Of a system that leaves it to the library where values go.
constexpr const char* kFieldsOfSettings =
    "This system has no elements of its own. A copy stands in those subfields of 852 that the "
    "setting holdings.MandarinEZTransferHoldingsSubfields names, such as khip: prefix, class, "
    "item part and bar code. A file of copies names its columns by place, such as 852h or 852p. "
    "Fields 001 and 989 belong to the system, and are not written.";

std::string SubfieldText(const zorby::CInfoAboutHoldingsField& element) {
    const auto code = static_cast<unsigned char>(element.GetSubfield());
    if (code >= ' ') return "$" + std::string(1, element.GetSubfield());
    return "part " + std::to_string(code);
}

HoldingsElementDocument HoldingsElementOf(const zorby::CInfoAboutHoldingsField& element) {
    const char delimiter = element.GetRepeatDelimiter();
    return {.id = static_cast<int>(element.GetHoldingsID()),
            .name = QmToUtf8(element.GetName()),
            .tag = TagText(element.GetTag()),
            .subfield = SubfieldText(element),
            .repeatDelimiter = std::string(delimiter != 0 ? 1 : 0, delimiter),
            .oncePerRecord = element.OnePerRecord() != 0,
            .help = QmToUtf8(element.GetHelpText())};
}

HoldingsTypeDocument DocumentOf(const zorby::CInfoAboutHoldingsType& type) {
    HoldingsTypeDocument document{
        .type = static_cast<int>(type.GetHoldingsTypeID()),
        .name = QmToUtf8(type.GetName()),
        .formerNames = {},
        .tags = type.GetCurrentHoldingsFields(),
        .isInForce = zorby::CHoldingsSelector::GetCurrentHoldingsType() == &type,
        .elements = {}};
    for (std::size_t i = 1; i < type.GetNames().size(); ++i) {
        document.formerNames.push_back(QmToUtf8(type.GetNames()[i]));
    }
    return document;
}

std::string ElementText(const HoldingsElementDocument& element) {
    std::string text = "  " + std::to_string(element.id) + "  " +
                       Padded(element.tag + " " + element.subfield + " ", 12) + element.name;
    if (!element.repeatDelimiter.empty()) {
        text += ", several values divided by \"" + element.repeatDelimiter + "\"";
    }
    if (element.oncePerRecord) text += ", once a record";
    text += "\n";
    if (!element.help.empty()) text += Paragraph(element.help, 7);
    return text;
}

}  // namespace

std::vector<HoldingsTypeDocument> DescribeHoldingsTypes() {
    std::vector<HoldingsTypeDocument> types;
    for (const auto* type = zorby::CInfoAboutHoldingsTypeList::GetFirst(); type != nullptr;
         type = zorby::CInfoAboutHoldingsTypeList::GetNext()) {
        types.push_back(DocumentOf(*type));
    }
    return types;
}

std::optional<HoldingsTypeDocument> DescribeHoldingsType(const std::string& name) {
    const zorby::CInfoAboutHoldingsType* type = FindHoldingsType(name);
    if (type == nullptr) return std::nullopt;
    HoldingsTypeDocument document = DocumentOf(*type);
    document.elements.emplace();
    for (int i = 0; i < type->GetSize(); ++i) {
        document.elements->push_back(HoldingsElementOf(*type->GetAt(i)));
    }
    return document;
}

std::string ToText(const HoldingsTypeDocument& type) {
    std::string text =
        RightAligned(std::to_string(type.type), 3) + "  " + Padded(type.name + " ", 44) + type.tags;
    for (const std::string& name : type.formerNames) text += "  (formerly " + name + ")";
    text += type.isInForce ? "  in force\n" : "\n";
    if (!type.elements) return text;
    if (type.elements->empty()) text += Paragraph(kFieldsOfSettings, 7);
    for (const HoldingsElementDocument& element : *type.elements) text += ElementText(element);
    return text;
}

std::string ToText(const std::vector<HoldingsTypeDocument>& types) {
    std::string text;
    for (const HoldingsTypeDocument& type : types) text += ToText(type);
    return text;
}

void ToJson(const HoldingsElementDocument& element, JsonWriter& json) {
    json.BeginObject();
    json.Member("id", element.id);
    json.Member("name", element.name);
    json.Member("tag", element.tag);
    json.Member("subfield", element.subfield);
    json.MemberIfAny("repeat_delimiter", element.repeatDelimiter);
    json.Member("once_per_record", element.oncePerRecord);
    json.Member("help", element.help);
    json.EndObject();
}

void ToJson(const HoldingsTypeDocument& type, JsonWriter& json) {
    json.BeginObject();
    json.Member("type", type.type);
    json.Member("name", type.name);
    json.Member("former_names", type.formerNames);
    json.Member("tags", type.tags);
    json.Member("in_force", type.isInForce);
    json.MemberIfAny("elements", type.elements);
    json.EndObject();
}

}  // namespace quillory
