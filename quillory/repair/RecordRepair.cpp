#include <quillory/coded/Material.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/repair/RecordRepair.h>
#include <quillory/repair/RepairMaterial.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

// A pass may depend on what the one before it put right, but only a few times.
constexpr int kMostPasses = 8;

constexpr int kPlaceOfPublication = 15;
constexpr int kLanguage = 35;

// Calls `visit` with each element of a field in order, and with the position where it begins.
template <class Visit>
void ForEachElement(const CodedField& field, CFType form008, Visit visit) {
    const auto visitAt = [&](const Element& element, int offset) {
        const int first = element.first + offset;
        visit(element, static_cast<std::size_t>(first));
    };
    bool hasSection = field.form != CF008Standard;
    for (const Element& element : ElementsOf(field.form)) {
        if (!hasSection && element.first >= kFirstMaterial008) {
            hasSection = true;
            for (const Element& inSection : ElementsOf(form008)) {
                if (inSection.first > 0) visitAt(inSection, kMaterialOffset008);
            }
        }
        visitAt(element, 0);
    }
}

std::string_view ValueAt(std::string_view bytes, const Element& element, std::size_t first) {
    return bytes.substr(std::min(first, bytes.size()), static_cast<std::size_t>(element.Width()));
}

// Of two fields of the format's length. Elements are short, and most are the same.
bool IsSameAt(const std::string& left, const std::string& right, const Element& element,
              std::size_t first) {
    const std::size_t end = first + static_cast<std::size_t>(element.Width());
    while (first < end && left[first] == right[first]) ++first;
    return first == end;
}

std::string Bytes(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

// What is missing is not coded; the Leader and undefined positions have no sign for that.
std::string Filled(const CodedField& field, CFType form008, std::size_t length) {
    std::string bytes(field.given.substr(0, length));
    bytes.resize(length, field.form == CFLdr ? ' ' : kFill);
    ForEachElement(field, form008, [&](const Element& element, std::size_t first) {
        if (!element.IsUndefined()) return;
        for (std::size_t i = 0; i < static_cast<std::size_t>(element.Width()); ++i) {
            if (first + i >= field.given.size()) bytes[first + i] = ' ';
        }
    });
    return bytes;
}

std::string LengthReason(std::string_view given, std::size_t length) {
    std::string reason = Bytes(given.size()) + ", the format has " + std::to_string(length);
    if (given.size() < length) return reason + "; filled up as not coded";
    const std::string_view cut = given.substr(length);
    return reason + "; cut: " + (IsAll(cut, ' ') ? "blanks" : std::string(cut));
}

const Element& ElementAt(CFType form, int first) {
    const auto& elements = ElementsOf(form);
    return *std::find_if(elements.begin(), elements.end(),
                         [first](const Element& element) { return element.first == first; });
}

}  // namespace

// Place of publication and language tell whether a byte too many or too few is at the end.
bool RecordRepairer::IsShifted(const CodedField& field008) {
    for (const int first : {kPlaceOfPublication, kLanguage}) {
        const Element& element = ElementAt(CF008Standard, first);
        const std::string_view value =
            ValueAt(field008.given, element, static_cast<std::size_t>(first));
        const bool isWhole = value.size() == static_cast<std::size_t>(element.Width());
        if (isWhole && !allowed_.Allows(element, value)) return true;
    }
    return false;
}

void RecordRepairer::FitLengths() {
    const auto length008 = static_cast<std::size_t>(LengthOfForm(CF008Standard));
    const CodedField* field008 = fields_.Field008();
    if (field008 != nullptr && field008->given.size() != length008 && !options_.strict &&
        IsShifted(*field008)) {
        fields_.Leave008(Bytes(field008->given.size()) +
                         ", the format has 40, and country and language are not in their places");
    }
    for (CodedField& field : fields_.Fields()) {
        const auto length = static_cast<std::size_t>(LengthOfForm(field.form));
        if (field.given.size() == length) {
            field.before = field.given;
        } else {
            field.before = Filled(field, form008_, length);
        }
        field.after = field.before;
        if (field.given.size() == length) continue;
        TellField(RepairKind::Length, field, LengthReason(field.given, length));
    }
}

// The library knows MARC-8 alone.
void RecordRepairer::RestoreLeader(const Record& record) {
    CodedField& leader = fields_.Leader();
    constexpr std::size_t kNumberSize = 5;
    for (const std::size_t first : {kLeaderLength, kLeaderBaseAddress}) {
        leader.after.replace(first, kNumberSize, leader.last, first, kNumberSize);
    }
    char& label = leader.after[kLeaderCharacterCode];
    const char last = leader.last[kLeaderCharacterCode];
    if (last == LabelFor(kCharsetUtf8) || last == LabelFor(kCharsetMarc8)) {
        label = last;
    } else {
        label = LabelFor(ActualCharset(record));
    }
}

void RecordRepairer::Protect(CodedField& field) {
    ForEachElement(field, form008_, [&](const Element& element, std::size_t first) {
        if (IsSameAt(field.last, field.after, element, first)) return;
        const std::string_view last = ValueAt(field.last, element, first);
        const std::string_view after = ValueAt(field.after, element, first);
        const std::string kept = allowed_.Protected(element, last, after);
        const bool isGiven = first < field.given.size();
        if (kept == last && isGiven) TellElement(RepairKind::Kept, field, element, last, after);
        kept.copy(field.after.data() + first, kept.size());
    });
}

bool RecordRepairer::RunPass(const Record& record) {
    std::erase_if(repairs_, [](const Repair& repair) { return repair.kind == RepairKind::Kept; });
    for (CodedField& field : fields_.Fields()) field.last = field.after;
    library_.Run(fields_);
    RestoreLeader(record);
    bool isChanged = false;
    for (CodedField& field : fields_.Fields()) {
        if (field.after == field.last) continue;
        if (!options_.strict) Protect(field);
        isChanged = isChanged || field.after != field.last;
    }
    return isChanged;
}

const std::vector<Repair>& RecordRepairer::Take(Record& record) {
    repairs_.clear();
    const RecordFormat format = FormatOfLeader(record.leader);
    if (format == RecordFormat::Other) return repairs_;
    if (format == RecordFormat::Unknown) {
        Repair left;
        left.kind = RepairKind::Left;
        left.reason = "leader/06 is no type of record, so the material can't be told";
        repairs_.push_back(left);
        return repairs_;
    }
    form008_ = MaterialOfLeader(record.leader);
    fields_.Collect(record);
    FitLengths();
    for (const CodedFields::Left& left : fields_.LeftOnes()) {
        TellField(RepairKind::Left, left.field, left.reason);
    }
    for (int pass = 0; pass < kMostPasses && RunPass(record); ++pass) {
    }
    TellReplaced();
    fields_.PutInto(record);
    return repairs_;
}

void RecordRepairer::TellReplaced() {
    for (const CodedField& field : fields_.Fields()) {
        if (field.after == field.before) continue;
        ForEachElement(field, form008_, [&](const Element& element, std::size_t first) {
            if (IsSameAt(field.before, field.after, element, first)) return;
            TellElement(RepairKind::Replaced, field, element, ValueAt(field.before, element, first),
                        ValueAt(field.after, element, first));
        });
    }
}

void RecordRepairer::TellElement(RepairKind kind, const CodedField& field, const Element& element,
                                 std::string_view before, std::string_view after) {
    Repair& repair = repairs_.emplace_back();
    repair.kind = kind;
    repair.field = field.Tag();
    repair.occurrence = field.occurrence;
    repair.element = &element;
    repair.before = before;
    repair.after = after;
}

void RecordRepairer::TellField(RepairKind kind, const CodedField& field,
                               const std::string& reason) {
    const std::string given(field.given);
    repairs_.push_back({kind, field.Tag(), field.occurrence, nullptr, given,
                        kind == RepairKind::Left ? given : field.before, reason});
}

std::string Repair::Place() const {
    return element == nullptr ? std::string(field) : ElementPlaceText(*element, field == "008");
}

}  // namespace quillory
