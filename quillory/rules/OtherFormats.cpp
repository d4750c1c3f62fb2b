#include <quillory/places/Tag.h>
#include <quillory/rules/ControlFields.h>
#include <quillory/rules/FormatTable.h>
#include <quillory/rules/FormatTexts.h>
#include <quillory/rules/OtherFormats.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/Words.h>

namespace quillory {
namespace {

constexpr unsigned kLeader = 0;  // as CodedPositions have it
constexpr unsigned k040 = 40;

struct TableText {
    std::string_view text;
    const char* name;
};

TableText TableOf(MarcFormat format) {
    switch (format) {
        case kFormatAuthority:
            return {kAuthorityTable, "authority.tsv"};
        case kFormatClassification:
            return {kClassificationTable, "classification.tsv"};
        case kFormatCommunity:
            return {kCommunityTable, "community.tsv"};
        default:
            return {kHoldingsTable, "holdings.tsv"};
    }
}

void CheckCode(const CodedPositions& positions, std::size_t at, char code, const Place& field,
               RemarkSink& remarks) {
    if (positions.current.Has(code) || code == kFill) return;
    RuleId rule = RuleId::CodeUnknown;
    if (positions.obsolete.Has(code)) rule = RuleId::CodeObsolete;
    if (positions.IsUndefined()) rule = RuleId::PositionUndefined;
    if (!remarks.Wants(rule)) return;
    const int position = static_cast<int>(at);
    const Place place = field.Positions(position, position);
    const std::string shown = Shown({&code, 1});
    if (rule == RuleId::PositionUndefined) return remarks.Add(rule, place, shown);
    const std::string end = rule == RuleId::CodeUnknown ? " is no code" : "";
    remarks.Add(rule, place, positions.element + ": " + shown + end,
                "it can be " + ValuesText(positions.current));
}

// The codes of the Leader or of a control field, as far as it is long enough to have them.
void CheckPositions(const FormatTable& table, unsigned tag, std::string_view bytes,
                    const Place& place, RemarkSink& remarks) {
    for (const CodedPositions& positions : table.Positions()) {
        if (positions.tag != tag) continue;
        for (std::size_t at = positions.first; at <= positions.last && at < bytes.size(); ++at) {
            CheckCode(positions, at, bytes[at], place, remarks);
        }
    }
}

void CheckControlField(const FormatTable& table, const CheckedField& field, RemarkSink& remarks) {
    if (field.number == kTag005) CheckTimeStamp(field, remarks);
    const std::size_t length = table.LengthOf(field.number);
    if (field.occurrence > 1 || (length != 0 && !CheckLength(field, length, remarks))) return;
    if (field.number == kTag008) CheckDayOfEntry(field, remarks);
    CheckPositions(table, field.number, field.content, field.GetPlace(), remarks);
}

void CheckCodedFields(const FormatTable& table, const RecordInHand& record, RemarkSink& remarks) {
    CheckPositions(table, kLeader, record.Leader(), Place::OfLeader(), remarks);
    for (const CheckedField& field : record.Fields()) {
        if (field.number < kFirstDataTag) CheckControlField(table, field, remarks);
    }
}

// A field 1XX of the format for authority data.
bool IsHeading(const CheckedField& field) {
    return field.number / 100 == 1 && field.rule->isKnown && !field.rule->hasAnyCodes;
}

// A second heading of the same tag is found as one that is not repeatable.
void CheckHeadings(const RecordInHand& record, RemarkSink& remarks) {
    const CheckedField* heading = nullptr;
    for (const CheckedField& field : record.Fields()) {
        if (field.number == kNoTag || !IsHeading(field)) continue;
        if (heading == nullptr) heading = &field;
        if (field.number == heading->number || field.occurrence > 1) continue;
        remarks.Add(RuleId::HeadingCount, field.GetPlace(),
                    "this heading comes after a " + std::string(heading->tag));
    }
    if (heading == nullptr) {
        remarks.Add(RuleId::HeadingCount, Place::OfRecord(), "the record has no heading");
    }
}

}  // namespace

struct OtherFormats::Work {
    Work(const TableText& text, bool allowsLocal)
        : table(text.text, text.name, allowsLocal), record(table.Rules()) {}

    FormatTable table;
    RecordInHand record;
};

OtherFormats::OtherFormats(bool allowsLocal) : allowsLocal_(allowsLocal) {}

OtherFormats::~OtherFormats() = default;

OtherFormats::Work& OtherFormats::WorkOf(MarcFormat format) {
    auto& work = works_.at(static_cast<std::size_t>(format));
    if (work == nullptr) work = std::make_unique<Work>(TableOf(format), allowsLocal_);
    return *work;
}

RecordInHand& OtherFormats::RecordOf(MarcFormat format) {
    return WorkOf(format).record;
}

void OtherFormats::Check(MarcFormat format, RemarkSink& remarks) {
    const auto& [table, record] = WorkOf(format);
    CheckCodedFields(table, record, remarks);
    CheckStructure(record, allowsLocal_, remarks);
    CheckSharedNumbers(record, remarks);
    CheckLinks(record, remarks);
    CheckNeeds(record, std::to_string(table.LengthOf(kTag008)) + " positions",
               table.IsMandatory(k040), remarks);
    if (format == kFormatAuthority) CheckHeadings(record, remarks);
}

}  // namespace quillory
