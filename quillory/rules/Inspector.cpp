#include <quillory/coded/Material.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/rules/Inspector.h>
#include <quillory/rules/Unimarc.h>
#include <quillory/text/Trimmed.h>

namespace quillory {
namespace {

CheckerOptions FindingAll(CheckerOptions options) {
    options.findsAll = true;
    return options;
}

// What the rules about structure find by themselves, with more to say.
bool IsFoundByStructure(zorby::E_ERROR_CODE code) {
    return code == zorby::EC_NotMARC || code == zorby::EC_NotRepeatable;
}

// Papers have the dates of their making beside the title.
bool HasDatesInTitle(const RecordInHand& record) {
    const CheckedField* title = record.First(245);
    if (title == nullptr) return false;
    return !record.TextOf(*title, 'f').empty() || !record.TextOf(*title, 'g').empty();
}

bool IsOnline(const RecordInHand& record) {
    const CheckedField* carrier = record.First(338);
    return carrier != nullptr && Trimmed(record.TextOf(*carrier, 'b')) == "cr";
}

// What nobody published has no publisher, and archives measure by boxes. Serials may have their
// dates in 362 alone. What is read online has no size.
bool IsMoot(RuleId rule, const RecordInHand& record) {
    constexpr std::string_view kManuscripts = "dfpt";
    constexpr std::string_view kSerials = "bis";
    const bool isUnpublished =
        record.LeaderByte(8) == 'a' || kManuscripts.find(record.LeaderByte(6)) != kManuscripts.npos;
    switch (rule) {
        case RuleId::NoPlaceOfPublication:
        case RuleId::NoPublisher:
            return isUnpublished;
        case RuleId::NoPhysicalDetails:
            return record.LeaderByte(8) == 'a';
        case RuleId::NoDimensions:
            return record.LeaderByte(8) == 'a' || IsOnline(record);
        case RuleId::NoDateOfPublication:
            if (isUnpublished && HasDatesInTitle(record)) return true;
            return kSerials.find(record.LeaderByte(7)) != kSerials.npos && record.Has(362);
        default:
            return false;
    }
}

}  // namespace

Inspector::Inspector(CheckerOptions options, const RuleWeights& weights, const CodeLists& lists,
                     OwnRules* ownRules)
    : options_(options),
      checker_(FindingAll(options)),
      weights_(weights),
      record_(checker_.GetFieldRules()),
      coded_(lists),
      others_(options.allowLocal),
      ownRules_(ownRules) {
    weights_.Follow(checker_.GetPolicy());
}

void Inspector::Inspect(const Record& record, std::uint64_t number, std::vector<Remark>& remarks) {
    remarks.clear();
    RemarkSink sink(weights_, remarks);
    const MarcFormat format = MarcFormatOf(record.leader);
    const bool isBibliographic = format == kFormatBibliographic;
    RecordInHand& inHand = isBibliographic ? record_ : others_.RecordOf(format);
    inHand.Take(record);
    if (IsUnimarc(inHand)) return TellUnimarc(sink);
    characters_.Check(record, CharsetOf(record), sink);
    if (isBibliographic) {
        CheckBibliographic(number, sink);
    } else {
        others_.Check(format, sink);
    }
    TakeFindings(record, inHand, sink);
    if (ownRules_ != nullptr) ownRules_->Check(record, sink);
    CheckControlNumber(record, number, sink);
}

void Inspector::CheckBibliographic(std::uint64_t number, RemarkSink& remarks) {
    coded_.Check(record_, remarks);
    CheckStructure(record_, options_.allowLocal, remarks);
    CheckDates(record_, remarks);
    CheckNotes(record_, remarks);
    CheckCodeFields(record_, remarks);
    CheckNumbers(record_, remarks);
    CheckTitleFields(record_, remarks);
    CheckMediaTypes(record_, remarks);
    CheckCarriers(record_, remarks);
    CheckNumbersMet(number, remarks);
    CheckPunctuation(record_, remarks);
    CheckLinks(record_, remarks);
    CheckNeeds(record_, true, remarks);
}

void Inspector::TellUnimarc(RemarkSink& remarks) {
    if (!hasToldUnimarc_) remarks.Add(RuleId::Unimarc, Place::OfRecord());
    hasToldUnimarc_ = true;
}

void Inspector::TakeFindings(const Record& record, const RecordInHand& inHand,
                             RemarkSink& remarks) {
    checker_.Check(record, findings_);
    for (const Finding& finding : findings_) {
        const RuleId rule = RuleOf(finding.code).id;
        if (IsFoundByStructure(finding.code) || IsMoot(rule, inHand)) continue;
        remarks.Add(rule, finding.place);
    }
}

Charset Inspector::CharsetOf(const Record& record) const {
    if (options_.charset != kCharsetAuto) return options_.charset;
    return record.leader[zorby::kLeaderCharacterCode] == 'a' ? kCharsetUtf8 : kCharsetMarc8;
}

void Inspector::CheckControlNumber(const Record& record, std::uint64_t number,
                                   RemarkSink& remarks) {
    const std::string_view controlNumber = Trimmed(record.ControlNumber());
    if (controlNumber.empty() || !remarks.Wants(RuleId::ControlNumberRepeated)) return;
    if (auto first = numbers_.Meet('c', controlNumber, number)) {
        remarks.Add(RuleId::ControlNumberRepeated, Place::OfField(1U, 1), std::move(*first));
    }
}

// The ISBN and the number of another system, by which files are matched when they are loaded.
void Inspector::CheckNumbersMet(std::uint64_t number, RemarkSink& remarks) {
    if (!remarks.Wants(RuleId::NumberRepeated)) return;
    for (const CheckedField& field : record_.Fields()) {
        if (field.number != 20 && field.number != 35) continue;
        std::string_view text = record_.TextOf(field, 'a');
        if (field.number == 20) text = text.substr(0, text.find(' '));
        if (text.empty()) continue;
        if (auto first = numbers_.Meet(field.number == 20 ? 'i' : 's', text, number)) {
            remarks.Add(RuleId::NumberRepeated, field.GetPlace().Subfield('a'), std::string(text),
                        std::move(*first));
        }
    }
}

}  // namespace quillory
