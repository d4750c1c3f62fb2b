#include <quillory/coded/Material.h>
#include <quillory/rules/Inspector.h>
#include <quillory/rules/StandardNumbers.h>
#include <quillory/rules/Unimarc.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

// What the dictionary says, the rules about structure find with more to say.
bool IsOfDictionary(RuleId rule) {
    return rule == RuleId::NotMarc || rule == RuleId::NotRepeatable;
}

// What the library finds for the rules in force.
zorby::ErrorCodeSet CodesFor(const RuleWeights& weights) {
    zorby::ErrorCodeSet codes;
    for (const Rule& rule : Rules()) {
        const bool isOfLibrary = rule.code != zorby::E_ERROR_CODE{};
        if (isOfLibrary && weights.Wants(rule.id) && !IsOfDictionary(rule.id)) codes.Set(rule.code);
    }
    return codes;
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
    constexpr std::string_view kSerials = "bis";
    const auto isUnpublished = [&record] {
        constexpr std::string_view kManuscripts = "dfpt";
        return record.LeaderByte(8) == 'a' ||
               kManuscripts.find(record.LeaderByte(6)) != kManuscripts.npos;
    };
    switch (rule) {
        case RuleId::NoPlaceOfPublication:
        case RuleId::NoPublisher:
            return isUnpublished();
        case RuleId::NoPhysicalDetails:
            return record.LeaderByte(8) == 'a';
        case RuleId::NoDimensions:
            return record.LeaderByte(8) == 'a' || IsOnline(record);
        case RuleId::NoDateOfPublication:
            if (isUnpublished() && HasDatesInTitle(record)) return true;
            return kSerials.find(record.LeaderByte(7)) != kSerials.npos && record.Has(362);
        default:
            return false;
    }
}

}  // namespace

Inspector::Inspector(CheckerOptions options, const RuleWeights& weights, const CodeLists& lists,
                     OwnRules* ownRules)
    : options_(options),
      checker_(std::move(options)),
      weights_(weights),
      record_(*checker_.GetOptions().rules),
      coded_(lists),
      others_(options_.allowLocal),
      ownRules_(ownRules) {
    weights_.Follow(checker_.GetPolicy());
    checker_.FindOnly(CodesFor(weights_));
}

void Inspector::Inspect(const Record& record, std::uint64_t number, std::vector<Remark>& remarks) {
    look_.remarks.swap(remarks);
    Look(record, look_);
    Compare(number, look_);
    look_.remarks.swap(remarks);
}

void Inspector::Look(const Record& record, RecordLook& look) {
    look.remarks.clear();
    look.numbers.clear();
    look.heaviest.reset();
    taking_.counts.BeginRecord();
    RemarkSink sink(weights_, look.remarks, &taking_);
    const MarcFormat format = MarcFormatOf(record.leader);
    const bool isBibliographic = format == kFormatBibliographic;
    RecordInHand& inHand = isBibliographic ? record_ : others_.RecordOf(format);
    inHand.Take(record);
    look.isUnimarc = IsUnimarc(inHand);
    if (look.isUnimarc) return;
    const bool isSaid = options_.charset != kCharsetAuto;
    const Charset charset = isSaid ? options_.charset : CharacterRules::CharsetOf(inHand, sink);
    characters_.Check(record, inHand, charset, sink);
    if (isBibliographic) {
        CheckBibliographic(look, sink);
    } else {
        others_.Check(format, sink);
    }
    TakeFindings(record, inHand, sink);
    if (ownRules_ != nullptr) ownRules_->Check(record, sink);
    NoteControlNumber(record, look);
    look.heaviest = taking_.counts.Heaviest();
}

// One record in UNIMARC is enough to say so of a file.
void Inspector::Compare(std::uint64_t number, RecordLook& look) {
    std::vector<Remark> added;
    taking_.counts.BeginRecord();
    if (look.isUnimarc && !std::exchange(hasToldUnimarc_, true)) {
        RemarkSink(weights_, look.remarks, &taking_).Add(RuleId::Unimarc, Place::OfRecord());
    }
    RemarkSink sink(weights_, added, &taking_);
    for (const NumberMet& met : look.numbers) {
        const auto first = numbers_.Meet(met.hash, number);
        if (!first) continue;
        const std::size_t before = added.size();
        sink.Add(met.rule, met.place, [&] {
            std::string where = numbers_.TextOf(*first);
            return met.rule == RuleId::ControlNumberRepeated
                       ? RemarkWords{std::move(where)}
                       : RemarkWords{std::string(met.number), std::move(where)};
        });
        if (added.size() == before) continue;
        const auto at = static_cast<std::ptrdiff_t>(met.at + before);
        look.remarks.insert(look.remarks.begin() + at, std::move(added.back()));
    }
    if (const auto heaviest = taking_.counts.Heaviest()) {
        look.heaviest = std::min(*heaviest, look.heaviest.value_or(*heaviest));
    }
}

void Inspector::CheckBibliographic(RecordLook& look, RemarkSink& remarks) {
    coded_.Check(record_, remarks);
    CheckStructure(record_, options_.allowLocal, remarks);
    CheckDates(record_, remarks);
    CheckNotes(record_, remarks);
    CheckCodeFields(record_, remarks);
    CheckNumbers(record_, remarks);
    CheckTitleFields(record_, remarks);
    CheckMediaTypes(record_, remarks);
    CheckCarriers(record_, remarks);
    NoteNumbers(look);
    CheckPunctuation(record_, remarks);
    CheckLinks(record_, remarks);
    CheckNeeds(record_, "40 positions, with dates, country and language", true, remarks);
}

void Inspector::TakeFindings(const Record& record, const RecordInHand& inHand,
                             RemarkSink& remarks) {
    checker_.Check(record, inHand, findings_);
    for (const Finding& finding : findings_) {
        const RuleId rule = RuleOf(finding.code).id;
        if (!IsMoot(rule, inHand)) remarks.Add(rule, finding.place);
    }
}

void Inspector::NoteControlNumber(const Record& record, RecordLook& look) const {
    const auto severity = weights_.Of(RuleId::ControlNumberRepeated);
    const std::string_view controlNumber = Trimmed(record.ControlNumber());
    if (!severity || controlNumber.empty()) return;
    look.numbers.push_back({RuleId::ControlNumberRepeated, 'c', controlNumber,
                            Place::OfField(1U, 1), look.remarks.size(), *severity,
                            SeenNumbers::HashOf('c', controlNumber)});
}

// The ISBN and the number of another system, by which files are matched when they are loaded.
void Inspector::NoteNumbers(RecordLook& look) const {
    const auto severity = weights_.Of(RuleId::NumberRepeated);
    if (!severity) return;
    record_.ForEachOf({20, 35}, [&](const CheckedField& field) {
        std::string_view text = record_.TextOf(field, 'a');
        if (field.number == 20) text = IsbnAtFront(WithoutBlanks(text));
        if (text.empty()) return;
        const bool isIsbn = field.number == 20;
        const char kind = isIsbn ? 'i' : 's';
        const std::uint64_t hash =
            isIsbn ? SeenNumbers::HashOf(kind, IsbnKey(text)) : SeenNumbers::HashOf(kind, text);
        look.numbers.push_back({RuleId::NumberRepeated, kind, text, field.GetPlace().Subfield('a'),
                                look.remarks.size(), *severity, hash});
    });
}

}  // namespace quillory
