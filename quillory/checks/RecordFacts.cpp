#include <quillory/checks/RecordFacts.h>
#include <quillory/exchange/Subfields.h>

namespace quillory {
namespace {

void Note(std::string_view content, FirstSubfields& found) {
    ForEachSubfield(content, [&found](char code, std::string_view text) {
        if (!HasText(text)) return;
        found.a = found.a || code == 'a';
        found.b = found.b || code == 'b';
        found.c = found.c || code == 'c';
    });
}

bool HasTitle(std::string_view content) {
    FirstSubfields found;
    Note(content, found);
    return found.a;
}

}  // namespace

bool HasText(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") != text.npos;
}

void RecordFacts::Take(const zorby::CommFormatField& field, const FieldRule& rule,
                       std::uint32_t occurrence) {
    if (field.tag == "008" && occurrence == 1) field008 = field.content;
    hasHoldings = hasHoldings || rule.isHoldings;
    switch (rule.role) {
        case kRoleMainEntry:
            if (mainEntry == 0) mainEntry = TagNumber(field.tag);
            break;
        case kRoleTitle:
            if (!title.empty() || !HasTitle(field.content)) break;
            title = field.content;
            titleOccurrence = occurrence;
            break;
        case kRolePublication:
            Note(field.content, publication);
            break;
        case kRoleExtent:
            Note(field.content, extent);
            break;
        case kRoleNote:
            hasNote = true;
            break;
        case kRoleSubject:
            hasSubject = true;
            break;
        default:
            break;
    }
}

}  // namespace quillory
