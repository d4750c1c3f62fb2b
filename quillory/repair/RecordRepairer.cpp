#include <quillory/coded/FreeValues.h>
#include <quillory/coded/Material.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/repair/FieldLength.h>
#include <quillory/repair/RecordRepairer.h>
#include <quillory/repair/ValueBytes.h>
#include <quillory/text/Ascii.h>

#include <utility>

namespace quillory {
namespace {

using namespace zorby;

// What one pass puts right may be what the next one judges another element by. A few passes settle
// any record; the limit only makes sure of an end.
constexpr int kMostPasses = 8;

// The label of the character set that the record is in; the one that it has, if that is a label.
char LabelOf(char label, const Record& record) {
    if (label == LabelFor(kCharsetUtf8) || label == LabelFor(kCharsetMarc8)) return label;
    return LabelFor(ActualCharset(record));
}

Repair RepairOf(const Judgement& judgement, const FieldElement& at, const CodedField& field) {
    const bool isLeft = judgement.value.empty();
    const std::string before(at.ValueIn(field.Bytes()));
    return {.kind = isLeft ? RepairKind::Left : RepairKind::Replaced,
            .repairClass = judgement.repairClass,
            .place = at.PlaceIn(field.place),
            .element = &at.element,
            .before = before,
            .after = isLeft ? before : judgement.value,
            .source = judgement.source,
            .fault = judgement.left};
}

}  // namespace

const std::vector<Repair>& RecordRepairer::PutRight(Record& record) {
    repairs_.clear();
    if (!IsBibliographic(record.leader)) return repairs_;
    material_ = MaterialOf(record.leader);
    if (material_ == CF006None) {
        Add({.kind = RepairKind::Left, .fault = FaultCode::kUnknownTypeOfRecord});
        return repairs_;
    }
    fields_.Collect(record, material_);
    FitLengths();
    for (const Repair& left : fields_.LeftOnes()) Add(left);
    if (options_.strict) {
        RunLibrary(record);
    } else {
        for (CodedField& field : fields_.Fields()) RepairElements(field, record);
    }
    fields_.PutInto(record);
    return repairs_;
}

// By the Leader as the repair leaves it: a level in a capital becomes one that may tell a serial.
CFType RecordRepairer::MaterialOf(std::string_view leader) const {
    const bool mendsCase = !options_.strict && options_.classes.Has(RepairClass::Case);
    if (!mendsCase || leader.size() <= kBibliographicLevel) return MaterialOfLeader(leader);
    std::string toLevel(leader.substr(0, kBibliographicLevel + 1));
    toLevel.back() = LowerAscii(toLevel.back());
    return MaterialOfLeader(toLevel);
}

void RecordRepairer::FitLengths() {
    for (std::size_t i = 0; i < fields_.Fields().size();) {
        CodedField& field = fields_.Fields()[i];
        if (const auto reason = WhyLeft(field)) {
            fields_.Leave(field, *reason);
        } else {
            FitLength(field);
            ++i;
        }
    }
}

// Why a field is to stay as it is.
std::optional<FaultCode> RecordRepairer::WhyLeft(const CodedField& field) {
    if (options_.strict) return std::nullopt;
    if (field.form == CF008Standard) {
        if (const auto reason = elements_.WhyNot008(field.given)) return reason;
    }
    const std::size_t length = field.layout->length;
    const bool isLonger = field.given.size() > length;
    if (isLonger && !SaysNothing(field.given.substr(length))) return FaultCode::kSurplusBytes;
    return std::nullopt;
}

void RecordRepairer::FitLength(CodedField& field) {
    if (field.given.size() == field.layout->length) return;
    if (!options_.strict && !options_.classes.Has(RepairClass::Length)) return;
    field.Touch() = FittedToFormat(field.given, field.form, material_);
    const bool isLonger = field.given.size() > field.bytes.size();
    Add({.kind = RepairKind::Length,
         .repairClass = RepairClass::Length,
         .place = field.place,
         .before = std::string(field.given),
         .after = field.bytes,
         .fault = isLonger ? FaultCode::kFieldCut : FaultCode::kFieldFilledUp});
}

void RecordRepairer::RepairElements(CodedField& field, const Record& record) {
    const std::string_view bytes = field.Bytes();  // what a repair changes is not looked at again
    for (const ElementRun& run : field.layout->runs) {
        // Days are many, and told sooner than found again.
        if (run.isDay && IsDayEntered(run.BytesIn(bytes))) continue;
        const auto judge = [&](auto& repairs) { return JudgeRun(run, field, record, repairs); };
        for (const Repair& repair : known_.Get(run, bytes, judge)) Mend(repair, field);
    }
}

// The repair is one of any field of this form.
void RecordRepairer::Mend(const Repair& repair, CodedField& field) {
    repairs_.push_back(repair);
    repairs_.back().place.occurrence = field.place.occurrence;
    if (repair.kind == RepairKind::Left) return;
    const auto first = static_cast<std::size_t>(repair.place.first);
    repair.after.copy(field.Touch().data() + first, repair.after.size());
}

// Result: whether the same bytes have the same repairs in any record.
bool RecordRepairer::JudgeRun(const ElementRun& run, const CodedField& field, const Record& record,
                              std::vector<Repair>& repairs) {
    bool isSameInAny = true;
    for (const FieldElement& at : run.elements) {
        const auto judgement = Judge(at, field, record);
        if (!judgement) continue;
        if (judgement->isOfRecord) isSameInAny = false;
        if (!options_.classes.Has(judgement->repairClass)) continue;
        repairs.push_back(RepairOf(*judgement, at, field));
    }
    return isSameInAny;
}

std::optional<Judgement> RecordRepairer::Judge(const FieldElement& at, const CodedField& field,
                                               const Record& record) {
    const std::string_view value = at.ValueIn(field.Bytes());
    if (value.size() < at.Width()) return std::nullopt;
    if (field.form == CFLdr && at.first == kLeaderCharacterCode) {
        const char label = LabelOf(value.front(), record);
        if (label == value.front()) return std::nullopt;
        return Judgement{
            .repairClass = RepairClass::CharacterSet, .value = {label}, .isOfRecord = true};
    }
    return elements_.Judge(at.element, value, field.form == CF008Standard, RecordEvidence(record));
}

void RecordRepairer::RunLibrary(const Record& record) {
    for (CodedField& field : fields_.Fields()) field.fitted = field.Touch();
    for (int pass = 0; pass < kMostPasses && RunPass(record); ++pass) {
    }
    for (const CodedField& field : fields_.Fields()) AddReplaced(field);
}

// Whether the pass changed anything.
bool RecordRepairer::RunPass(const Record& record) {
    for (CodedField& field : fields_.Fields()) field.beforePass = field.bytes;
    library_.Run(fields_);
    RestoreLeader(record);
    return std::ranges::any_of(
        fields_.Fields(), [](const CodedField& field) { return field.bytes != field.beforePass; });
}

void RecordRepairer::RestoreLeader(const Record& record) {
    CodedField& leader = fields_.Leader();
    constexpr std::size_t kNumberSize = 5;
    for (const std::size_t first : {kLeaderLength, kLeaderBaseAddress}) {
        leader.bytes.replace(first, kNumberSize, leader.beforePass, first, kNumberSize);
    }
    // The library writes MARC-8, whatever the record is in.
    leader.bytes[kLeaderCharacterCode] = LabelOf(leader.beforePass[kLeaderCharacterCode], record);
}

void RecordRepairer::AddReplaced(const CodedField& field) {
    if (field.bytes == field.fitted) return;
    for (const ElementRun& run : field.layout->runs) {
        for (const FieldElement& at : run.elements) {
            if (at.IsSameIn(field.fitted, field.bytes)) continue;
            Add({.kind = RepairKind::Replaced,
                 .repairClass = RepairClass::Library,
                 .place = at.PlaceIn(field.place),
                 .element = &at.element,
                 .before = std::string(at.ValueIn(field.fitted)),
                 .after = std::string(at.ValueIn(field.bytes))});
        }
    }
}

void RecordRepairer::Add(Repair repair) {
    const bool isWanted = options_.strict || options_.classes.Has(repair.repairClass);
    if (isWanted) repairs_.push_back(std::move(repair));
}

}  // namespace quillory
