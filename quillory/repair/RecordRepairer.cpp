#include <quillory/coded/Material.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/repair/FieldElements.h>
#include <quillory/repair/FieldLength.h>
#include <quillory/repair/RecordRepairer.h>

namespace quillory {
namespace {

using namespace zorby;

// What one pass puts right may be what the next one judges another element by. A few passes settle
// any record; the limit only makes sure of an end.
constexpr int kMostPasses = 8;

}  // namespace

const std::vector<Repair>& RecordRepairer::PutRight(Record& record) {
    repairs_.clear();
    if (!IsBibliographic(record.leader)) return repairs_;
    material_ = MaterialOfLeader(record.leader);
    if (material_ == CF006None) {
        repairs_.push_back({.kind = RepairKind::Left, .fault = FaultCode::kUnknownTypeOfRecord});
        return repairs_;
    }
    fields_.Collect(record);
    FitLengths();
    Add(fields_.LeftOnes());
    for (int pass = 0; pass < kMostPasses && RunPass(record); ++pass) {
    }
    Add(kept_);
    for (const CodedField& field : fields_.Fields()) AddReplaced(field);
    fields_.PutInto(record);
    return repairs_;
}

void RecordRepairer::FitLengths() {
    const auto hasLength = [](const CodedField& field) {
        return field.given.size() == static_cast<std::size_t>(LengthOfForm(field.form));
    };
    const CodedField* field008 = fields_.Field008();
    if (!options_.strict && field008 != nullptr && !hasLength(*field008) &&
        IsShifted008(field008->given, allowed_)) {
        fields_.Leave008(FaultCode::kShifted008);
    }
    for (CodedField& field : fields_.Fields()) {
        if (hasLength(field)) {
            field.fitted = field.given;
        } else {
            field.fitted = FittedToFormat(field.given, field.form, material_);
            const bool isLonger = field.given.size() > field.fitted.size();
            repairs_.push_back({RepairKind::Length, field.place, nullptr, std::string(field.given),
                                field.fitted,
                                isLonger ? FaultCode::kFieldCut : FaultCode::kFieldFilledUp});
        }
        field.bytes = field.fitted;
    }
}

// Whether the pass changed anything.
bool RecordRepairer::RunPass(const Record& record) {
    kept_.clear();
    for (CodedField& field : fields_.Fields()) field.beforePass = field.bytes;
    library_.Run(fields_);
    RestoreLeader(record);
    bool isChanged = false;
    for (CodedField& field : fields_.Fields()) {
        if (field.bytes == field.beforePass) continue;
        if (!options_.strict) RestoreAllowedValues(field);
        isChanged = isChanged || field.bytes != field.beforePass;
    }
    return isChanged;
}

void RecordRepairer::RestoreLeader(const Record& record) {
    CodedField& leader = fields_.Leader();
    constexpr std::size_t kNumberSize = 5;
    for (const std::size_t first : {kLeaderLength, kLeaderBaseAddress}) {
        leader.bytes.replace(first, kNumberSize, leader.beforePass, first, kNumberSize);
    }
    // The library writes MARC-8, whatever the record is in.
    char& label = leader.bytes[kLeaderCharacterCode];
    const char before = leader.beforePass[kLeaderCharacterCode];
    if (before == LabelFor(kCharsetUtf8) || before == LabelFor(kCharsetMarc8)) {
        label = before;
    } else {
        label = LabelFor(ActualCharset(record));
    }
}

void RecordRepairer::RestoreAllowedValues(CodedField& field) {
    ForEachElement(field.form, material_, [&](const FieldElement& at) {
        if (at.IsSameIn(field.beforePass, field.bytes)) return;
        const std::string_view before = at.ValueIn(field.beforePass);
        const std::string proposed(at.ValueIn(field.bytes));
        const std::string chosen = allowed_.Choose(at.element, before, proposed);
        chosen.copy(field.bytes.data() + at.first, chosen.size());
        const bool isGiven = at.first < field.given.size();
        if (chosen == before && isGiven) {
            kept_.push_back({RepairKind::Kept, at.PlaceIn(field.place), &at.element,
                             std::string(before), proposed});
        }
    });
}

void RecordRepairer::AddReplaced(const CodedField& field) {
    if (field.bytes == field.fitted) return;
    ForEachElement(field.form, material_, [&](const FieldElement& at) {
        if (at.IsSameIn(field.fitted, field.bytes)) return;
        repairs_.push_back({RepairKind::Replaced, at.PlaceIn(field.place), &at.element,
                            std::string(at.ValueIn(field.fitted)),
                            std::string(at.ValueIn(field.bytes))});
    });
}

void RecordRepairer::Add(const std::vector<Repair>& repairs) {
    repairs_.insert(repairs_.end(), repairs.begin(), repairs.end());
}

}  // namespace quillory
