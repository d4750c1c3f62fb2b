#include <quillory/checks/Checker.h>
#include <quillory/checks/FieldChecks.h>
#include <quillory/checks/RecordRules.h>
#include <quillory/coded/Material.h>
#include <zorby/checking/RecordError.h>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kMostOfRecord = kLongestExportedRecord;

void CheckRules(const RecordFacts& facts, FindingSink& findings) {
    const std::uint32_t of008 = facts.field008.empty() ? 0U : 1U;
    for (const RecordRule& rule : RecordRules()) {
        if (!findings.Wants(rule.code) || !rule.isBroken(facts)) continue;
        const std::uint32_t occurrence = rule.where == BrokenAt::Field ? of008 : 0U;
        findings.Add(rule.code, Place::OfField(rule.tag, occurrence).Subfield(rule.subfield));
    }
}

// The size of a record as the communications format counts it, ends included.
std::size_t SizeOf(const Record& record) {
    std::size_t size = kLeaderSize + 2;
    for (const CommFormatField& field : record.fields) {
        size += kDirectoryEntrySize + field.content.size() + 1;
    }
    return size;
}

}  // namespace

Checker::Checker(CheckerOptions options)
    : options_(options), rules_(options.allowLocal), occurrences_(kTags) {}

void Checker::Begin() {
    for (const unsigned tag : touched_) occurrences_[tag] = 0;
    touched_.clear();
    oddTags_.clear();
}

void Checker::Check(const Record& record, std::vector<Finding>& findings) {
    Begin();
    findings.clear();
    FindingSink sink(policy_, options_.findsAll, findings);
    RecordFacts facts;
    facts.leader = record.leader;
    const bool isBibliographic = IsBibliographic(record.leader);
    for (const CommFormatField& field : record.fields) {
        CheckField(field, isBibliographic, facts, sink);
    }
    if (isBibliographic) {
        CheckRules(facts, sink);
        CheckTitleCase(record, facts, sink);
    }
    if (SizeOf(record) > kMostOfRecord) sink.Add(EC_RecordTooLong, Place::OfRecord());
}

void Checker::CheckField(const CommFormatField& field, bool isBibliographic, RecordFacts& facts,
                         FindingSink& findings) {
    const unsigned tag = TagNumber(field.tag);
    const std::uint32_t occurrence = Occurrence(field.tag, tag);
    const FieldInHand inHand{
        field, Place::OfField(field.tag, occurrence), tag, rules_, facts, options_.allowLocal};
    for (const FieldCheck& check : FieldChecks()) {
        if (isBibliographic || check.isForAllFormats) check.check(inHand, findings);
    }
    if (isBibliographic && tag != kNoTag) facts.Take(field, rules_.Of(tag), occurrence);
}

std::uint32_t Checker::Occurrence(std::string_view tag, unsigned number) {
    if (number == kNoTag) return ++oddTags_[Place::OfField(tag).tag];
    if (occurrences_[number] == 0) touched_.push_back(number);
    return ++occurrences_[number];
}

void Checker::CheckTitleCase(const Record& record, const RecordFacts& facts,
                             FindingSink& findings) {
    if (!findings.Wants(EC_UpperCaseTitle) || facts.title.empty()) return;
    if (titleCase_.IsUpperCase(record, facts.title, options_.charset)) {
        findings.Add(EC_UpperCaseTitle, Place::OfField("245", facts.titleOccurrence).Subfield('a'));
    }
}

}  // namespace quillory
