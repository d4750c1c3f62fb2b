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

// Those that look at fields of a role and may find what is wanted.
std::vector<FieldCheck> ChecksOf(FieldRole role, const ErrorCodeSet& wanted) {
    std::vector<FieldCheck> checks;
    std::ranges::copy_if(FieldChecks(), std::back_inserter(checks), [&](const FieldCheck& check) {
        const auto isWanted = [&wanted](E_ERROR_CODE code) { return wanted.Has(code); };
        return (!check.role || check.role == role) && std::ranges::any_of(check.codes, isWanted);
    });
    return checks;
}

// The size of a record as the communications format counts it, ends included.
std::size_t SizeOf(const Record& record) {
    return record.bytes.empty() ? CommFormatSize(record.fields) : record.bytes.size();
}

}  // namespace

Checker::Checker(CheckerOptions options)
    : options_(WithRules(std::move(options))), record_(*options_.rules) {
    FindOnly(policy_.CodesWanted());
}

void Checker::FindOnly(const ErrorCodeSet& codes) {
    wanted_ = codes;
    for (std::size_t role = 0; role < kRoles; ++role) {
        ChecksOfRole& ofRole = checks_[role];
        ofRole = {ChecksOf(static_cast<FieldRole>(role), wanted_)};
        for (const FieldCheck& check : ofRole.checks) {
            ofRole.leastSize = std::min(ofRole.leastSize, check.leastSize);
        }
    }
}

void Checker::Check(const Record& record, std::vector<Finding>& findings) {
    record_.Take(record);
    Check(record, record_, findings);
}

void Checker::Check(const Record& record, const RecordInHand& inHand,
                    std::vector<Finding>& findings) {
    findings.clear();
    FindingSink sink(policy_, wanted_, findings);
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
