#include <quillory/cataloging/Draft.h>
#include <quillory/cataloging/PublicationDate.h>
#include <quillory/places/Tag.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr unsigned kTitle = 245;
constexpr unsigned kSeries = 490;
constexpr unsigned kFirstOfSeriesEntries = 800;
constexpr unsigned kLastOfSeriesEntries = 830;
constexpr unsigned kImprint = 260;
constexpr unsigned kPublication = 264;
constexpr unsigned kFirstOfMainEntries = 100;
constexpr unsigned kLastOfMainEntries = 199;
constexpr std::size_t kDescriptiveForm = 18;
constexpr std::size_t kTypeOfDate = 6;
constexpr std::size_t kDate1 = 7;

struct Ranked {
    std::size_t rank;
    const SubfieldText* subfield;
    bool isOfWorkform = false;
};

// Whether a code comes again after another one: then the order has a meaning.
bool HasOrderOfItsOwn(const std::vector<SubfieldText>& subfields) {
    std::string codes;
    for (const SubfieldText& subfield : subfields) {
        const std::size_t known = codes.find(subfield.code);
        if (known != codes.npos && known + 1 != codes.size()) return true;
        if (known == codes.npos) codes += subfield.code;
    }
    return false;
}

std::vector<Ranked> RankedInOrder(const std::vector<SubfieldText>& given, std::string_view order) {
    const bool keepsOrder = HasOrderOfItsOwn(given);
    std::vector<Ranked> ranked;
    std::size_t rank = 0;
    for (const SubfieldText& subfield : given) {
        const std::size_t place = order.find(subfield.code);
        if (place != order.npos) rank = keepsOrder ? std::max(rank, place) : place;
        ranked.push_back({rank, &subfield});
    }
    return ranked;
}

}  // namespace

Record Draft::Finish() {
    record_.Clear();
    TakeOverDate();
    leader_[zorby::kLeaderCharacterCode] = 'a';
    for (const ControlField& field : controlFields_) {
        if (field.content.empty()) continue;
        int occurrence = 0;
        record_.FieldNew(static_cast<int>(field.tag), occurrence);
        record_.FieldAddControlField(field.tag, occurrence, field.content, 0);
    }
    AddFinishedFields();
    Record record;
    record.leader = leader_;
    for (const std::string& field : record_) {
        const std::string_view text(field);
        record.fields.push_back({text.substr(0, kTagSize), text.substr(kTagSize)});
    }
    return record;
}

// The fields of a tag stay together, where the workform has the first of them.
void Draft::AddFinishedFields() {
    std::vector<unsigned> done;
    for (const Field& first : fields_) {
        if (std::ranges::find(done, first.tag) != done.end()) continue;
        done.push_back(first.tag);
        for (const Field& field : fields_) {
            if (field.tag == first.tag && field.IsWanted()) AddFinished(field);
        }
    }
}

void Draft::AddFinished(const Field& field) {
    DraftedField parts = PartsOf(field);
    if (parts.subfields.empty()) return;
    if (!field.isWritten) Punctuate(GetPunctuation(), HasAny(kSeries, kSeries), parts);
    int occurrence = 0;
    record_.FieldNew(static_cast<int>(field.tag), occurrence);
    record_.FieldSetIndicators(field.tag, occurrence, parts.indicators[0], parts.indicators[1]);
    for (const SubfieldText& subfield : parts.subfields) {
        record_.FieldAddSubfield(field.tag, occurrence, subfield.code, subfield.text, '\0');
    }
}

// The first indicator of a title says whether the record is entered under a name, that of a series
// whether an added entry follows.
std::string Draft::IndicatorsOf(const Field& field) const {
    std::string indicators = field.indicators;
    if (field.hasIndicators) return indicators;
    if (field.tag == kTitle) {
        indicators[0] = HasAny(kFirstOfMainEntries, kLastOfMainEntries) ? '1' : '0';
    } else if (field.tag == kSeries) {
        indicators[0] = HasAny(kFirstOfSeriesEntries, kLastOfSeriesEntries) ? '1' : '0';
    }
    return indicators;
}

Punctuation Draft::GetPunctuation() const {
    const char form = leader_[kDescriptiveForm];
    if (form == 'c' || form == 'n') return Punctuation::Omit;
    const bool hasMarks = form == 'a' || form == 'i';
    return putsMarks_ && hasMarks ? Punctuation::Put : Punctuation::Keep;
}

bool Draft::HasAny(unsigned firstTag, unsigned lastTag) const {
    return std::ranges::any_of(fields_, [&](const Field& field) {
        return firstTag <= field.tag && field.tag <= lastTag && field.IsWanted() &&
               !PartsOf(field).subfields.empty();
    });
}

DraftedField Draft::PartsOf(const Field& field) const {
    DraftedField parts{TagText(field.tag), IndicatorsOf(field), {}, {}};
    if (field.isWritten) {
        parts.subfields = field.given;
        return parts;
    }
    const std::string& order = pattern_.CodesOf(field.tag);
    std::vector<Ranked> ranked = RankedInOrder(field.given, order);
    if (field.pattern != nullptr) {
        for (const SubfieldText& subfield : field.pattern->subfields) {
            if (!field.Has(subfield.code)) {
                ranked.push_back({order.find(subfield.code), &subfield, true});
            }
        }
    }
    std::ranges::stable_sort(ranked, {}, &Ranked::rank);
    for (const Ranked& entry : ranked) {
        if (entry.subfield->text.empty()) continue;
        parts.subfields.push_back(*entry.subfield);
        parts.ofWorkform.push_back(entry.isOfWorkform);
    }
    return parts;
}

// Date 1 of 008 becomes the year of publication, unless it was given.
void Draft::TakeOverDate() {
    const auto found =
        std::ranges::find(controlFields_, kTag008, [](const ControlField& f) { return f.tag; });
    if (hasOwnDate_ || found == controlFields_.end() || found->content.size() <= kDate1) return;
    std::string& content = found->content;
    const char type = content[kTypeOfDate];
    const bool isContinuing = type == 'c' || type == 'u';
    if (type != 's' && type != 't' && !isContinuing) return;
    const std::string year = YearOf(DateOfPublication(isContinuing), isContinuing);
    if (!year.empty()) content.replace(kDate1, year.size(), year);
}

// The first date that was given; a copyright date only if there is no other.
std::string Draft::DateOfPublication(bool isContinuing) const {
    std::string copyright;
    for (const Field& field : fields_) {
        if (field.tag != kPublication && field.tag != kImprint) continue;
        for (const SubfieldText& subfield : field.given) {
            if (subfield.code != 'c') continue;
            if (field.tag == kImprint || field.indicators[1] != '4') return subfield.text;
            if (!YearOf(subfield.text, isContinuing).empty()) copyright = subfield.text;
        }
    }
    return copyright;
}

}  // namespace quillory
