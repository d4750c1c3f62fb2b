#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/repair/RecordEvidence.h>
#include <quillory/repair/ValueBytes.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::CommFormatField;

constexpr std::size_t kCodeSize = 3;
constexpr std::size_t kLanguage008 = 35;
constexpr char kSourceInSubfield2 = '7';

// The first subfield of this code; empty without one.
std::string_view SubfieldIn(const CommFormatField& field, char wanted) {
    std::string_view found;
    ForEachSubfield(field.content, [&](char code, std::string_view text) {
        if (code == wanted && found.empty()) found = text;
    });
    return found;
}

// Calls `take` for each field of the tag until it returns true.
template <class Take>
void FindField(const Record& record, std::string_view tag, Take take) {
    for (const CommFormatField& field : record.fields) {
        if (field.tag == tag && take(field)) return;
    }
}

}  // namespace

std::string RecordEvidence::Language() const {
    std::string language;
    FindField(*record_, "041", [&](const CommFormatField& field) {
        if (field.content.size() > 1 && field.content[1] == kSourceInSubfield2) return false;
        const std::string_view codes = SubfieldIn(field, 'a');
        // Several codes may stand in one subfield, without anything between them.
        if (codes.size() % kCodeSize == 0) language = AsciiLower(codes.substr(0, kCodeSize));
        return true;
    });
    return language;
}

std::string RecordEvidence::Country() const {
    std::string country;
    FindField(*record_, "044", [&](const CommFormatField& field) {
        country = AsciiLower(SubfieldIn(field, 'a'));
        if (country.size() == kCodeSize - 1) country += ' ';
        if (country.size() != kCodeSize) country.clear();
        return true;
    });
    return country;
}

bool RecordEvidence::IsOnline() const {
    constexpr std::string_view kOnline = "cr";
    bool isOnline = false;
    FindField(*record_, "338", [&](const CommFormatField& field) {
        isOnline = SubfieldIn(field, 'b') == kOnline;
        return !isOnline;
    });
    return isOnline;
}

bool RecordEvidence::NamesPlace() const {
    return std::ranges::any_of(record_->fields, [](const CommFormatField& field) {
        return (field.tag == "260" || field.tag == "264") && !SubfieldIn(field, 'a').empty();
    });
}

bool RecordEvidence::NamesLanguage() const {
    return Has("041") || Has("546");
}

bool RecordEvidence::Has(std::string_view tag) const {
    return std::ranges::find(record_->fields, tag, &CommFormatField::tag) != record_->fields.end();
}

std::string_view RecordEvidence::Language008() const {
    const auto field = std::ranges::find(record_->fields, "008", &CommFormatField::tag);
    if (field == record_->fields.end() || field->content.size() < kLanguage008 + kCodeSize) {
        return {};
    }
    return field->content.substr(kLanguage008, kCodeSize);
}

}  // namespace quillory
