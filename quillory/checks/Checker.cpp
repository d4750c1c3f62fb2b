#include <quillory/checks/Checker.h>
#include <quillory/checks/RecordRules.h>
#include <quillory/coded/Material.h>
#include <zorby/checking/RecordError.h>

#include <algorithm>
#include <iterator>
#include <utility>

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

CheckerOptions WithRules(CheckerOptions options) {
    if (!options.rules) options.rules = std::make_shared<FieldRules>(options.allowLocal);
    return options;
}

// Those that look at fields of a role. With `findsAll`, other rules find what the dictionary says.
std::vector<FieldCheck> ChecksOf(FieldRole role, bool findsAll) {
    std::vector<FieldCheck> checks;
    std::ranges::copy_if(FieldChecks(), std::back_inserter(checks), [=](const FieldCheck& check) {
        return (!check.role || check.role == role) && !(findsAll && check.isOfDictionary);
    });
    return checks;
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
    : options_(WithRules(std::move(options))), record_(*options_.rules) {
    for (std::size_t role = 0; role < kRoles; ++role) {
        std::vector<FieldCheck> checks = ChecksOf(static_cast<FieldRole>(role), options_.findsAll);
        const std::size_t least = std::ranges::min(checks, {}, &FieldCheck::leastSize).leastSize;
        checks_[role] = {std::move(checks), least};
    }
}

void Checker::Check(const Record& record, std::vector<Finding>& findings) {
    record_.Take(record);
    Check(record, record_, findings);
}

void Checker::Check(const Record& record, const RecordInHand& inHand,
                    std::vector<Finding>& findings) {
    findings.clear();
    FindingSink sink(policy_, options_.findsAll, findings);
    RecordFacts facts;
    facts.leader = record.leader;
    const bool isBibliographic = IsBibliographic(record.leader);
    for (const CheckedField& field : inHand.Fields()) {
        const ChecksOfRole& ofRole = checks_[field.rule->role];
        if (field.content.size() >= ofRole.leastSize) {
            for (const FieldCheck& check : ofRole.checks) {
                if (field.content.size() < check.leastSize) continue;
                if (!isBibliographic && !check.isForAllFormats) continue;
                check.check({inHand, field, facts, options_.allowLocal}, sink);
            }
        }
        if (isBibliographic) facts.Take(inHand, field);
    }
    if (isBibliographic) {
        CheckRules(facts, sink);
        CheckTitleCase(record, facts, sink);
    }
    if (SizeOf(record) > kMostOfRecord) sink.Add(EC_RecordTooLong, Place::OfRecord());
}

void Checker::CheckTitleCase(const Record& record, const RecordFacts& facts,
                             FindingSink& findings) {
    if (!findings.Wants(EC_UpperCaseTitle) || facts.title.empty()) return;
    if (titleCase_.IsUpperCase(record, facts.title, options_.charset)) {
        findings.Add(EC_UpperCaseTitle, Place::OfField("245", facts.titleOccurrence).Subfield('a'));
    }
}

}  // namespace quillory
