#include <quillory/coded/Material.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/Successors.h>
#include <quillory/rules/Words.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

// Letters and digits: a tag that a library or a system has made up for itself.
bool IsMadeUpTag(std::string_view tag) {
    return std::ranges::all_of(tag, [](char c) {
        return ('0' <= c && c <= '9') || ('a' <= (c | 0x20) && (c | 0x20) <= 'z');
    });
}

bool HasMoreThanBlanks(std::string_view text) {
    return text.find_first_not_of(' ') != text.npos;
}

// "the first indicator is 9".
std::string IndicatorText(int which, char value) {
    const std::string text = which == 1 ? "the first indicator is " : "the second indicator is ";
    if (value == '\0') return text + "missing";
    return text + (value == ' ' ? "blank" : Printable({&value, 1}));
}

void CheckIndicators(const CheckedField& field, const FieldRule& rule, RemarkSink& remarks) {
    for (int which = 1; which <= 2; ++which) {
        const auto& values = rule.indicators[static_cast<std::size_t>(which - 1)];
        const char value = field.Indicator(which);
        if (values.Allows(value)) continue;
        const RuleId found =
            values.obsolete.Has(value) ? RuleId::IndicatorObsolete : RuleId::IndicatorUndefined;
        remarks.Add(found, field.GetPlace().Indicator(which), [&] {
            return RemarkWords{IndicatorText(which, value), ValuesText(values.current)};
        });
    }
}

// The indicator that leaves the source to $2, in a field that has no $2; 0 if there is none.
int IndicatorWithoutSource(const CheckedField& field, const FieldRule& rule) {
    if (!rule.mayNameSource || field.Has('2')) return 0;
    if (rule.indicators[0].sourced.Has(field.Indicator(1))) return 1;
    return rule.indicators[1].sourced.Has(field.Indicator(2)) ? 2 : 0;
}

// The tag by whose rule a field goes: of an 880 that of the field to which it belongs.
std::string_view RuledTag(const RecordInHand& record, const CheckedField& field) {
    const bool isLinked = &record.RuleFor(field) != field.rule;
    return isLinked ? record.TextOf(field, '6').substr(0, kTagSize) : field.tag;
}

// What $2 names; in most fields it is the source of a heading, term or number.
std::string_view NamedIn2(std::string_view tag) {
    if (tag == "082" || tag == "083") return "edition";
    return tag == "342" || tag == "856" || tag == "857" ? "method" : "source";
}

void CheckSource(const RecordInHand& record, const CheckedField& field, const FieldRule& rule,
                 RemarkSink& remarks) {
    const int which = IndicatorWithoutSource(field, rule);
    if (which == 0) return;
    remarks.Add(RuleId::SourceMissing, field.GetPlace().Indicator(which), [&] {
        return RemarkWords{IndicatorText(which, field.Indicator(which)),
                           std::string(NamedIn2(RuledTag(record, field)))};
    });
}

// "MARC 21", of which other formats than the bibliographic one are parts with a name.
std::string FormatName(const RecordInHand& record) {
    if (MarcFormatOf(record.Leader()) == kFormatBibliographic) return "MARC 21";
    return "MARC 21 for " + MaterialText(record.Leader());
}

void AddUndefinedField(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    remarks.Add(RuleId::NotMarc, field.GetPlace(), [&] {
        return RemarkWords{FormatName(record) + " has no field " + Printable(field.tag)};
    });
}

// "field 245"; of an 880 with the field to which it belongs.
std::string FieldName(const RecordInHand& record, const CheckedField& field) {
    const std::string_view tag = RuledTag(record, field);
    const std::string name = "field " + std::string(field.tag);
    return tag == field.tag ? name : name + " for " + std::string(tag);
}

// How to keep both of two subfields.
std::string WayOut(const FieldRule& rule, const CheckedField& field) {
    const std::string join = "join them, or ";
    if (!rule.isRepeatable) return join + "delete one";
    return join + "give a field " + std::string(field.tag) + " for each";
}

std::string NowIn(std::string_view successor) {
    return successor.empty() ? std::string() : "; use " + std::string(successor);
}

// A field under the rule of the field that it is linked to, or else of its own tag.
struct RuledField {
    const RecordInHand& record;
    const CheckedField& field;
    const FieldRule& rule;
};

// The check before export says so of titles with a text.
bool IsFurtherTitle(const CheckedField& field, const SubfieldInHand& subfield,
                    const RemarkSink& remarks) {
    return field.number == 245 && subfield.code == 'a' && HasMoreThanBlanks(subfield.text) &&
           remarks.Wants(RuleId::ManyTitles);
}

void CheckFurther(const RuledField& ruled, const SubfieldInHand& subfield, RemarkSink& remarks) {
    const CheckedField& field = ruled.field;
    const FieldRule& rule = ruled.rule;
    const bool mayStand = !rule.codes.Has(subfield.code) || rule.repeatableCodes.Has(subfield.code);
    if (mayStand || IsFurtherTitle(field, subfield, remarks)) return;
    remarks.Add(RuleId::NotRepeatable, field.GetPlace().Subfield(subfield.code), [&] {
        return RemarkWords{FieldName(ruled.record, field) + " has only one $" + subfield.code,
                           WayOut(rule, field)};
    });
}

void CheckFirst(const RuledField& ruled, char code, RemarkSink& remarks) {
    const CheckedField& field = ruled.field;
    const Place place = field.GetPlace().Subfield(code);
    if (!ruled.rule.codes.Has(code)) {
        remarks.Add(RuleId::NotMarc, place, [&] {
            return RemarkWords{FieldName(ruled.record, field) + " has no subfield $" +
                               Printable({&code, 1})};
        });
    } else if (ruled.rule.obsoleteCodes.Has(code)) {
        remarks.Add(RuleId::SubfieldObsolete, place, [&] {
            return RemarkWords{{}, NowIn(SuccessorOfSubfield(field.tag, code))};
        });
    }
}

// Each code is named once a field, and so is what stands too often.
void CheckCodes(const RecordInHand& record, const CheckedField& field, const FieldRule& rule,
                RemarkSink& remarks) {
    if (rule.IsUsual(field.codes, field.repeated)) return;
    std::array<std::uint8_t, 256> counts{};
    for (const SubfieldInHand& subfield : record.SubfieldsOf(field)) {
        std::uint8_t& count = counts[static_cast<unsigned char>(subfield.code)];
        if (count == 2) continue;
        ++count;
        if (count == 1) CheckFirst({record, field, rule}, subfield.code, remarks);
        if (count == 2) CheckFurther({record, field, rule}, subfield, remarks);
    }
}

void CheckTexts(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    if (!field.lacksText) return;
    const auto subfields = record.SubfieldsOf(field);
    const auto isEmpty = [](const SubfieldInHand& subfield) {
        return !HasMoreThanBlanks(subfield.text);
    };
    if (std::ranges::all_of(subfields, isEmpty)) {
        remarks.Add(RuleId::FieldEmpty, field.GetPlace());
        return;
    }
    for (const SubfieldInHand& subfield : subfields) {
        if (isEmpty(subfield)) {
            remarks.Add(RuleId::SubfieldEmpty, field.GetPlace().Subfield(subfield.code));
        }
    }
}

// The checks before export say so of main entries and titles.
bool IsFurtherEntry(const RecordInHand& record, const CheckedField& field,
                    const RemarkSink& remarks) {
    const FieldRole role = field.rule->role;
    if (role == kRoleTitle) {
        return HasMoreThanBlanks(record.TextOf(field, 'a')) && remarks.Wants(RuleId::ManyTitles);
    }
    return role == kRoleMainEntry && remarks.Wants(RuleId::ManyMainEntries100);
}

bool IsOneTooMany(const CheckedField& field, const FieldRule& rule) {
    return field.occurrence > 1 && !rule.isRepeatable;
}

void CheckRepeated(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    if (!IsOneTooMany(field, *field.rule)) return;
    if (IsFurtherEntry(record, field, remarks)) return;
    remarks.Add(RuleId::NotRepeatable, field.GetPlace(), [&] {
        return RemarkWords{"a record has only one field " + std::string(field.tag),
                           field.IsData() ? "join them, or delete one" : "delete one"};
    });
}

// Whether nothing is wrong with a field, as it is with most.
bool IsInOrder(const CheckedField& field, const FieldRule& rule) {
    if (!rule.isKnown || rule.isObsolete || rule.role == kRoleLinked) return false;
    if (field.lacksText || IsOneTooMany(field, rule)) return false;
    if (!field.IsData()) return field.isPlain;
    if (IndicatorWithoutSource(field, rule) != 0) return false;
    return rule.indicators[0].Allows(field.Indicator(1)) &&
           rule.indicators[1].Allows(field.Indicator(2)) &&
           rule.IsUsual(field.codes, field.repeated);
}

void CheckKnownField(const RecordInHand& record, const CheckedField& field, const FieldRule& rule,
                     RemarkSink& remarks) {
    if (rule.isObsolete) {
        remarks.Add(RuleId::FieldObsolete, field.GetPlace(), [&] {
            return RemarkWords{{}, NowIn(SuccessorOfField(field.number))};
        });
    }
    CheckRepeated(record, field, remarks);
    if (!field.IsData()) {
        if (field.lacksText) remarks.Add(RuleId::FieldEmpty, field.GetPlace());
        if (field.isPlain) return;
        const auto delimiters = std::ranges::count(field.content, zorby::kDelimiter);
        if (delimiters > 0) {
            remarks.Add(RuleId::SubfieldsInControlField, field.GetPlace(),
                        std::to_string(delimiters));
        }
        return;
    }
    const FieldRule& linked = rule.role == kRoleLinked ? record.RuleFor(field) : rule;
    if (!linked.isObsolete) {
        CheckIndicators(field, linked, remarks);
        CheckSource(record, field, linked, remarks);
    }
    CheckCodes(record, field, linked, remarks);
    // What systems keep in fields of their own is their affair.
    if (!rule.hasAnyCodes) CheckTexts(record, field, remarks);
}

}  // namespace

void CheckStructure(const RecordInHand& record, bool allowsLocal, RemarkSink& remarks) {
    for (const CheckedField& field : record.Fields()) {
        const FieldRule& rule = *field.rule;
        if (IsInOrder(field, rule)) continue;
        if (rule.isKnown) {
            CheckKnownField(record, field, rule, remarks);
        } else {
            const bool isLocal = field.number == kNoTag && allowsLocal && IsMadeUpTag(field.tag);
            if (!isLocal) AddUndefinedField(record, field, remarks);
        }
    }
}

void CheckNeeds(const RecordInHand& record, std::string_view positionsOf008, bool needsSource,
                RemarkSink& remarks) {
    if (!record.Has(1)) remarks.Add(RuleId::No001, Place::OfField(1U));
    if (!record.Has(8)) {
        remarks.Add(RuleId::No008, Place::OfField(8U), {}, std::string(positionsOf008));
    }
    if (!needsSource) return;
    const CheckedField* source = record.First(40);
    const bool hasSource = source != nullptr && (HasMoreThanBlanks(record.TextOf(*source, 'a')) ||
                                                 HasMoreThanBlanks(record.TextOf(*source, 'c')));
    if (!hasSource) {
        remarks.Add(RuleId::No040, Place::OfField(40U, source == nullptr ? 0U : 1U));
    } else if (!HasMoreThanBlanks(record.TextOf(*source, 'c'))) {
        remarks.Add(RuleId::SourceIncomplete, source->GetPlace(),
                    "$c, the agency that made the record machine-readable");
    } else if (!HasMoreThanBlanks(record.TextOf(*source, 'a'))) {
        remarks.Add(RuleId::SourceIncomplete, source->GetPlace(),
                    "$a, the agency that described the item");
    }
}

}  // namespace quillory
