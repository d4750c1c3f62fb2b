#include <quillory/coded/Material.h>
#include <quillory/rules/RuleFamilies.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr int kFirstContents = 24;
constexpr int kLastContents = 27;
constexpr int kIndex = 31;

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return 'A' <= c && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    });
    return lower;
}

bool SaysBibliography(unsigned tag, const std::string& note) {
    return tag == 504 && note.find("bibliograph") != note.npos;
}

bool SaysIndex(const std::string& note) {
    return note.starts_with("includes index") || note.find(" and index") != note.npos ||
           note.find(" and an index") != note.npos;
}

bool IsCoded(std::string_view value) {
    return value.find('|') == value.npos;
}

void CheckNote(const CheckedField& fixed, unsigned tag, std::string_view text,
               RemarkSink& remarks) {
    const std::string_view contents =
        fixed.content.substr(kFirstContents, kLastContents - kFirstContents + 1);
    const bool isFull = contents.find(' ') == contents.npos;
    const bool saysNoBibliography =
        IsCoded(contents) && !isFull && contents.find('b') == contents.npos;
    const bool saysNoIndex = fixed.content[kIndex] == '0';
    if (!saysNoBibliography && !saysNoIndex) return;
    const std::string note = Lower(text);
    if (saysNoBibliography && SaysBibliography(tag, note)) {
        remarks.Add(RuleId::NoteAgainst008,
                    fixed.GetPlace().Positions(kFirstContents, kLastContents),
                    TagText(tag) + " mentions a bibliography", "b for it");
    }
    if (saysNoIndex && SaysIndex(note)) {
        remarks.Add(RuleId::NoteAgainst008, fixed.GetPlace().Positions(kIndex, kIndex),
                    TagText(tag) + " mentions an index", "1 for it");
    }
}

}  // namespace

void CheckNotes(const RecordInHand& record, RemarkSink& remarks) {
    const CheckedField* fixed = record.Whole008();
    if (fixed == nullptr || MaterialOfLeader(record.Leader()) != zorby::CF006Books) return;
    record.ForEachOf({500, 504}, [&](const CheckedField& field) {
        CheckNote(*fixed, field.number, record.TextOf(field, 'a'), remarks);
    });
}

}  // namespace quillory
