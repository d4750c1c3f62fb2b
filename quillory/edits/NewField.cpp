#include <quillory/cataloging/Entry.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/edits/NewField.h>
#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>

namespace quillory {
namespace {

constexpr std::string_view kTakes =
    "a field such as 590, a subfield such as 245h, or a control field such as 003";

Entry EntryOf(const Place& place, const std::string& text, std::string_view textName) {
    try {
        return MakeEntry(place.Field(), text);
    } catch (const EntryError& error) {
        throw ParameterError(textName, error.What());
    }
}

std::string ContentOf(const Entry& entry) {
    std::string content = entry.indicators;
    for (const SubfieldText& subfield : entry.subfields) {
        content += Part(subfield.code, subfield.text);
    }
    return content;
}

}  // namespace

NewField ReadNewField(const Parameters& parameters, std::string_view placeName,
                      std::string_view textName) {
    const Place place =
        PlaceOfKind(parameters, placeName,
                    {PlaceKind::Field, PlaceKind::Subfield, PlaceKind::ControlField}, kTakes);
    std::string text = parameters.FieldText(textName);
    if (text.empty()) throw ParameterError(textName, {FaultCode::kNoFieldText});
    NewField field{std::string(place.Tag()), {}};
    switch (KindOf(place)) {
        case PlaceKind::ControlField:
            field.content = std::move(text);
            break;
        case PlaceKind::Subfield:
            field.content = std::string(kBlankIndicators) + Part(place.code, text);
            break;
        default:
            field.content = ContentOf(EntryOf(place, text, textName));
            break;
    }
    return field;
}

}  // namespace quillory
