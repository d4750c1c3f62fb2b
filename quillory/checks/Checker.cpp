#include <quillory/checks/Checker.h>
#include <quillory/checks/ControlFieldChecks.h>
#include <quillory/coded/Material.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/exchange/Subfields.h>
#include <zorby/checking/RecordError.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kMostOfSubfield = kLongestExportedSubfield;
constexpr std::size_t kMostOfField = kLongestExportedField;
constexpr std::size_t kMostOfRecord = kLongestExportedRecord;

constexpr std::uint8_t kHasA = 1;
constexpr std::uint8_t kHasB = 2;
constexpr std::uint8_t kHasC = 4;

std::size_t Index(char code) {
    return static_cast<unsigned char>(code);
}

bool HasText(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") != text.npos;
}

std::array<char, 3> TagBytes(std::string_view tag) {
    std::array<char, 3> bytes{};
    tag.copy(bytes.data(), bytes.size());
    return bytes;
}

// Letters and digits: a tag that a library or a system has made up for itself.
bool IsMadeUpTag(std::string_view tag) {
    return std::ranges::all_of(tag, [](char c) {
        return ('0' <= c && c <= '9') || ('a' <= (c | 0x20) && (c | 0x20) <= 'z');
    });
}

// Which of $a, $b and $c have text.
std::uint8_t FirstThree(std::string_view content) {
    std::uint8_t found = 0;
    ForEachSubfield(content, [&found](char code, std::string_view text) {
        if (code < 'a' || 'c' < code || !HasText(text)) return;
        found = static_cast<std::uint8_t>(found | 1 << (code - 'a'));
    });
    return found;
}

E_ERROR_CODE ManyMainEntries(unsigned firstTag) {
    switch (firstTag) {
        case 100:
            return EC_ManyMainEntriesPersonal;
        case 110:
            return EC_ManyMainEntriesCorporate;
        case 111:
            return EC_ManyMainEntriesMeeting;
        default:
            return EC_ManyMainEntriesUniformTitle;
    }
}

}  // namespace

Checker::Checker(CheckerOptions options)
    : options_(options),
      rules_(options.allowLocal),
      asksDictionary_(policy_.Wants(EC_NotMARC) || policy_.Wants(EC_NotRepeatable)),
      occurrences_(kTags) {}

void Checker::Begin(std::vector<Finding>& findings) {
    for (const unsigned tag : touched_) occurrences_[tag] = 0;
    touched_.clear();
    oddTags_.clear();
    findings.clear();
    findings_ = &findings;
    seen_ = Seen();
}

void Checker::Check(const Record& record, std::vector<Finding>& findings) {
    Begin(findings);
    const bool isBibliographic = IsBibliographic(record.leader);
    for (const CommFormatField& field : record.fields) CheckField(field, isBibliographic);
    if (isBibliographic) CheckWhole(record);
    CheckSize(record);
}

void Checker::CheckField(const CommFormatField& field, bool isBibliographic) {
    const unsigned tag = TagNumber(field.tag);
    place_ = {field.tag, Occurrence(field.tag, tag)};
    if (field.content.size() > kMostOfField) {
        Add(EC_FieldTooLong);
        if (tag >= 10) CheckSubfieldLengths(field.content);
    }
    if (!isBibliographic) return;
    if (tag != kNoTag) {
        CheckNumbered(field, tag);
    } else if (!options_.allowLocal || !IsMadeUpTag(field.tag)) {
        Add(EC_NotMARC);
    }
}

std::uint32_t Checker::Occurrence(std::string_view tag, unsigned number) {
    if (number == kNoTag) return ++oddTags_[TagBytes(tag)];
    if (occurrences_[number] == 0) touched_.push_back(number);
    return ++occurrences_[number];
}

void Checker::CheckNumbered(const CommFormatField& field, unsigned tag) {
    const FieldRule& rule = rules_.Of(tag);
    if (tag == 8 && place_.occurrence == 1) seen_.field008 = field.content;
    if (rule.role == kRoleMainEntry) CheckMainEntry(tag);
    Note(rule.role, field.content);
    seen_.hasHoldings = seen_.hasHoldings || rule.isHoldings;
    if (!asksDictionary_) return;
    if (!rule.isKnown) {
        Add(EC_NotMARC);
        return;
    }
    if (!rule.isRepeatable && place_.occurrence > 1) Add(EC_NotRepeatable);
    if (!field.IsControlField()) CheckSubfields(RuleFor(rule, field.content), field.content);
}

// A linked field has the subfields of the field whose text it gives in another script.
const FieldRule& Checker::RuleFor(const FieldRule& rule, std::string_view content) const {
    if (rule.role != kRoleLinked) return rule;
    const FieldRule* linked = &rule;
    ForEachSubfield(content, [&](char code, std::string_view text) {
        const unsigned tag = code == '6' ? TagNumber(text.substr(0, 3)) : kNoTag;
        if (tag != kNoTag && rules_.Of(tag).isKnown) linked = &rules_.Of(tag);
    });
    return *linked;
}

// Each code is told once a field.
void Checker::CheckSubfields(const FieldRule& rule, std::string_view content) {
    if (rule.hasAnyCodes) return;
    Codes seen;
    Codes repeated;
    ForEachSubfield(content, [&](char code, std::string_view) {
        const std::size_t i = Index(code);
        if (!seen[i]) {
            seen.set(i);
            if (!rule.codes[i]) Add(EC_NotMARC, code);
        } else if (rule.codes[i] && !rule.repeatableCodes[i] && !repeated[i]) {
            repeated.set(i);
            Add(EC_NotRepeatable, code);
        }
    });
}

void Checker::CheckSubfieldLengths(std::string_view content) {
    ForEachSubfield(content, [this](char code, std::string_view text) {
        if (text.size() > kMostOfSubfield) Add(EC_SubfieldTooLong, code);
    });
}

void Checker::CheckMainEntry(unsigned tag) {
    if (seen_.mainEntry == 0) {
        seen_.mainEntry = tag;
    } else {
        Add(ManyMainEntries(seen_.mainEntry));
    }
}

void Checker::Note(FieldRole role, std::string_view content) {
    switch (role) {
        case kRoleTitle:
            NoteTitle(content);
            break;
        case kRolePublication:
            seen_.publication |= FirstThree(content);
            break;
        case kRoleExtent:
            seen_.extent |= FirstThree(content);
            break;
        case kRoleNote:
            seen_.hasNote = true;
            break;
        case kRoleSubject:
            seen_.hasSubject = true;
            break;
        default:
            break;
    }
}

void Checker::NoteTitle(std::string_view content) {
    ForEachSubfield(content, [&](char code, std::string_view text) {
        if (code != 'a' || !HasText(text)) return;
        if (++seen_.titles == 1) {
            seen_.title = content;
            seen_.titleOccurrence = place_.occurrence;
        } else {
            Add(EC_TooManyTitles, 'a');
        }
    });
}

void Checker::CheckWhole(const Record& record) {
    if (seen_.titles == 0) AddMissing(EC_NoTitle, "245", 'a');
    if ((seen_.publication & kHasA) == 0) AddMissing(EC_NoPlaceOfPublication, "260", 'a');
    if ((seen_.publication & kHasB) == 0) AddMissing(EC_NoPublisher, "260", 'b');
    if ((seen_.publication & kHasC) == 0) AddMissing(EC_NoDateOfPublication, "260", 'c');
    if ((seen_.extent & kHasA) == 0) AddMissing(EC_NoExtent, "300", 'a');
    if ((seen_.extent & kHasB) == 0) AddMissing(EC_NoOtherPhysicalDetails, "300", 'b');
    if ((seen_.extent & kHasC) == 0) AddMissing(EC_NoDimensions, "300", 'c');
    if (!seen_.hasNote) AddMissing(EC_NoNotes, "500");
    if (!seen_.hasSubject) AddMissing(EC_NoSubjects, "600");
    CheckControlFields(record);
    if (!seen_.hasHoldings) AddMissing(EC_NoHoldings, "852");
    CheckTitleCase(record);
}

void Checker::CheckTitleCase(const Record& record) {
    if (!policy_.Wants(EC_UpperCaseTitle) || seen_.title.empty()) return;
    if (titleCase_.IsUpperCase(record, seen_.title, options_.charset)) {
        AddAt({"245", seen_.titleOccurrence}, EC_UpperCaseTitle, 'a');
    }
}

void Checker::CheckControlFields(const Record& record) {
    const Place place{"008", seen_.field008.empty() ? 0U : 1U};
    if (IsDateUnknown(seen_.field008)) AddAt(place, EC_UnknownDate, '\0');
    if (IsRunningTimeUnknown(record.leader, seen_.field008)) {
        AddAt(place, EC_UnknownRunningTime, '\0');
    }
    if (IsPlaceUnknown(seen_.field008)) AddAt(place, EC_UnknownPlace, '\0');
}

// As the communications format counts, ends included.
void Checker::CheckSize(const Record& record) {
    std::size_t size = kLeaderSize + 2;
    for (const CommFormatField& field : record.fields) {
        size += kDirectoryEntrySize + field.content.size() + 1;
    }
    if (size > kMostOfRecord) AddAt({}, EC_RecordTooLong, '\0');
}

void Checker::Add(E_ERROR_CODE code, char subfield) {
    AddAt(place_, code, subfield);
}

void Checker::AddMissing(E_ERROR_CODE code, std::string_view tag, char subfield) {
    AddAt({tag, 0}, code, subfield);
}

void Checker::AddAt(const Place& place, E_ERROR_CODE code, char subfield) {
    if (!policy_.Wants(code)) return;
    findings_->push_back(
        {code, policy_.SeverityOf(code), TagBytes(place.tag), place.occurrence, subfield});
}

}  // namespace quillory
