#include <quillory/edits/FieldParts.h>
#include <quillory/edits/TextOperation.h>
#include <quillory/exchange/Subfields.h>

namespace quillory {

void TextOperation::Run(EditedRecord& record, const FieldFilter& isMeant) const {
    for (const PlacePattern& pattern : places_.patterns) {
        for (const std::size_t index : FieldsOf(record, pattern, isMeant)) {
            const std::string_view content = record.ContentOf(index);
            const bool isControl = record.IsControl(index);
            record.SetContent(
                index, isControl ? Changed(content, content) : ChangedField(content, pattern));
        }
    }
}

std::string TextOperation::ChangedField(std::string_view content,
                                        const PlacePattern& pattern) const {
    const FieldParts field = PartsOf(content);
    std::string changed(field.head);
    for (const std::string_view part : field.parts) {
        const bool isMeant =
            part.size() > 1 && (!pattern.HasCodes() || pattern.HasCode(CodeOf(part)));
        changed += isMeant ? Part(CodeOf(part), Changed(TextOf(part), content)) : part;
    }
    return changed;
}

}  // namespace quillory
