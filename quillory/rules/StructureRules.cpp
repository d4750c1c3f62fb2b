#include <quillory/rules/RuleFamilies.h>
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

std::string IndicatorText(char value) {
    if (value == ' ') return "blank";
    return Printable({&value, 1});
}

// "blank, 0 to 9".
std::string ValuesText(const Codes& values) {
    std::string text;
    for (int value = 0; value < 256; ++value) {
        if (!values[static_cast<std::size_t>(value)]) continue;
        int last = value;
        while (last < 255 && values[static_cast<std::size_t>(last) + 1]) ++last;
        text += (text.empty() ? "" : ", ") + IndicatorText(static_cast<char>(value));
        if (last > value + 1) {
            text += " to " + IndicatorText(static_cast<char>(last));
            value = last;
        }
    }
    return text;
}

void CheckIndicators(const CheckedField& field, const FieldRule& rule, RemarkSink& remarks) {
    for (int which = 1; which <= 2; ++which) {
        const auto& values = rule.indicators[static_cast<std::size_t>(which - 1)];
        const char value = field.Indicator(which);
        if (values.current.none() || values.current[static_cast<unsigned char>(value)]) continue;
        const RuleId found = values.obsolete[static_cast<unsigned char>(value)]
                                 ? RuleId::IndicatorObsolete
                                 : RuleId::IndicatorUndefined;
        if (!remarks.Wants(found)) continue;
        remarks.Add(found, field.GetPlace().Indicator(which), IndicatorText(value),
                    ValuesText(values.current));
    }
}

bool HasText(std::string_view text) {
    return text.find_first_not_of(' ') != text.npos;
}

void CheckSubfield(const CheckedField& field, const FieldRule& rule, char code, bool isFurther,
                   RemarkSink& remarks) {
    const auto index = static_cast<unsigned char>(code);
    const Place place = field.GetPlace().Subfield(code);
    if (isFurther) {
        if (rule.codes[index] && !rule.repeatableCodes[index]) {
            remarks.Add(RuleId::NotRepeatable, place);
        }
    } else if (!rule.codes[index]) {
        remarks.Add(RuleId::NotMarc, place);
    } else if (rule.obsoleteCodes[index]) {
        remarks.Add(RuleId::SubfieldObsolete, place);
    }
}

// Each code is named once a field, and so is what stands too often.
void CheckCodes(const RecordInHand& record, const CheckedField& field, const FieldRule& rule,
                RemarkSink& remarks) {
    if (rule.hasAnyCodes) return;
    std::array<std::uint8_t, 256> counts{};
    for (const SubfieldInHand& subfield : record.SubfieldsOf(field)) {
        std::uint8_t& count = counts[static_cast<unsigned char>(subfield.code)];
        if (count == 2) continue;
        ++count;
        CheckSubfield(field, rule, subfield.code, count == 2, remarks);
    }
}

void CheckTexts(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    const auto subfields = record.SubfieldsOf(field);
    const auto isEmpty = [](const SubfieldInHand& subfield) { return !HasText(subfield.text); };
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

void CheckKnownField(const RecordInHand& record, const CheckedField& field, const FieldRule& rule,
                     RemarkSink& remarks) {
    if (rule.isObsolete) remarks.Add(RuleId::FieldObsolete, field.GetPlace());
    if (!rule.isRepeatable && field.occurrence > 1) {
        remarks.Add(RuleId::NotRepeatable, field.GetPlace());
    }
    if (!field.IsData()) {
        if (!HasText(field.content)) remarks.Add(RuleId::FieldEmpty, field.GetPlace());
        const auto delimiters = std::ranges::count(field.content, zorby::kDelimiter);
        if (delimiters > 0) {
            remarks.Add(RuleId::SubfieldsInControlField, field.GetPlace(),
                        std::to_string(delimiters));
        }
        return;
    }
    const FieldRule& linked = record.RuleFor(field);
    if (!linked.isObsolete) CheckIndicators(field, linked, remarks);
    CheckCodes(record, field, linked, remarks);
    // What systems keep in fields of their own is their affair.
    if (!rule.hasAnyCodes) CheckTexts(record, field, remarks);
}

}  // namespace

void CheckStructure(const RecordInHand& record, bool allowsLocal, RemarkSink& remarks) {
    for (const CheckedField& field : record.Fields()) {
        if (field.number == kNoTag) {
            const bool isLocal = allowsLocal && IsMadeUpTag(field.tag);
            if (!isLocal) remarks.Add(RuleId::NotMarc, field.GetPlace());
            continue;
        }
        const FieldRule& rule = record.OwnRuleOf(field);
        if (!rule.isKnown) {
            remarks.Add(RuleId::NotMarc, field.GetPlace());
        } else {
            CheckKnownField(record, field, rule, remarks);
        }
    }
}

void CheckNeeds(const RecordInHand& record, bool needsSource, RemarkSink& remarks) {
    if (!record.Has(1)) remarks.Add(RuleId::No001, Place::OfField(1U));
    if (!record.Has(8)) remarks.Add(RuleId::No008, Place::OfField(8U));
    if (!needsSource) return;
    const CheckedField* source = record.First(40);
    const bool hasSource = source != nullptr && (HasText(record.TextOf(*source, 'a')) ||
                                                 HasText(record.TextOf(*source, 'c')));
    if (!hasSource) {
        remarks.Add(RuleId::No040, Place::OfField(40U, source == nullptr ? 0U : 1U));
    } else if (!HasText(record.TextOf(*source, 'c'))) {
        remarks.Add(RuleId::SourceIncomplete, source->GetPlace(),
                    "$c, the agency that made the record machine-readable");
    } else if (!HasText(record.TextOf(*source, 'a'))) {
        remarks.Add(RuleId::SourceIncomplete, source->GetPlace(),
                    "$a, the agency that described the item");
    }
}

}  // namespace quillory
