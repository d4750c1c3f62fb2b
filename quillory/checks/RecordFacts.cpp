#include <quillory/checks/RecordFacts.h>

#include <algorithm>

namespace quillory {
namespace {

void Note(std::span<const SubfieldInHand> subfields, FirstSubfields& found) {
    for (const auto& [code, text] : subfields) {
        if (code < 'a' || 'c' < code || !HasText(text)) continue;
        found.a = found.a || code == 'a';
        found.b = found.b || code == 'b';
        found.c = found.c || code == 'c';
    }
}

bool HasTitle(std::span<const SubfieldInHand> subfields) {
    FirstSubfields found;
    Note(subfields, found);
    return found.a;
}

}  // namespace

bool HasText(std::string_view text) {
    return std::ranges::any_of(
        text, [](char c) { return c != ' ' && c != '\t' && c != '\r' && c != '\n'; });
}

void RecordFacts::TakeInRole(FieldRole role, const RecordInHand& record,
                             const CheckedField& field) {
    switch (role) {
        case kRoleMainEntry:
            if (mainEntry == 0) mainEntry = field.number;
            break;
        case kRoleTitle:
            if (!title.empty() || !HasTitle(record.SubfieldsOf(field))) break;
            title = record.SubfieldsOf(field);
            titleOccurrence = field.occurrence;
            break;
        case kRolePublication:
            Note(record.SubfieldsOf(field), publication);
            break;
        case kRoleExtent:
            Note(record.SubfieldsOf(field), extent);
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
