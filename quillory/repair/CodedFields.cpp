#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/repair/CodedFields.h>

#include <algorithm>
#include <functional>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view kTag006 = "006";
constexpr std::string_view kTag007 = "007";
constexpr std::string_view kTag008 = "008";

bool LiesIn(std::string_view view, std::string_view bytes) {
    const std::less_equal<> isBefore;
    return isBefore(bytes.data(), view.data()) &&
           isBefore(view.data() + view.size(), bytes.data() + bytes.size());
}

// `view` is a part of `original`: the same part of a copy.
std::string_view SamePart(std::string_view view, std::string_view original,
                          const std::string& copy) {
    return {copy.data() + (view.data() - original.data()), view.size()};
}

}  // namespace

void CodedFields::Collect(const Record& record) {
    count_ = 0;
    left_.clear();
    Add(CodedField::kLeader, Place::OfLeader(), CFLdr, record.leader);
    std::uint32_t count006 = 0;
    std::uint32_t count007 = 0;
    std::uint32_t count008 = 0;
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const CommFormatField& field = record.fields[i];
        if (!field.IsControlField()) continue;
        if (field.tag == kTag006) {
            Add(i, Place::OfField(kTag006, ++count006), MaterialOf006(field.content),
                field.content);
        } else if (field.tag == kTag007) {
            Add(i, Place::OfField(kTag007, ++count007), CategoryOf007(field.content),
                field.content);
        } else if (field.tag == kTag008) {
            Add(i, Place::OfField(kTag008, ++count008), CF008Standard, field.content);
        }
    }
}

void CodedFields::Add(std::size_t index, const Place& place, CFType form, std::string_view given) {
    if (count_ == fields_.size()) fields_.emplace_back();
    CodedField& field = fields_[count_];
    field.index = index;
    field.place = place;
    field.form = form;
    field.given = given;
    if (form == CF006None || form == CF007None) {
        Leave(field, FaultCode::kUnknownFirstByte);
    } else if (form == CF008Standard && place.occurrence > 1) {
        Leave(field, FaultCode::kSecond008);
    } else {
        ++count_;
    }
}

void CodedFields::Leave(const CodedField& field, FaultCode reason) {
    const std::string given(field.given);
    left_.push_back({RepairKind::Left, field.place, nullptr, given, given, reason});
}

CodedField* CodedFields::Field008() {
    const auto fields = Fields();
    const auto found = std::ranges::find(fields, CF008Standard, &CodedField::form);
    return found == fields.end() ? nullptr : &*found;
}

void CodedFields::Leave008(FaultCode reason) {
    CodedField* field008 = Field008();
    if (field008 == nullptr) return;
    Leave(*field008, reason);
    std::rotate(field008, field008 + 1, fields_.data() + count_);
    --count_;
}

void CodedFields::PutInto(Record& record) {
    if (std::ranges::none_of(Fields(), &CodedField::IsChanged)) return;
    if (FitInto(record)) {
        PutIntoBytes(record);
    } else {
        PutIntoFields(record);
    }
}

// Whether the record can keep its own bytes around those that changed.
bool CodedFields::FitInto(const Record& record) {
    return !record.bytes.empty() && LiesIn(record.leader, record.bytes) &&
           std::ranges::all_of(
               record.fields,
               [&](const auto& field) { return LiesIn(field.content, record.bytes); }) &&
           std::ranges::all_of(Fields(), [](const CodedField& field) {
               return field.bytes.size() == field.given.size();
           });
}

void CodedFields::PutIntoBytes(Record& record) {
    const std::string_view original = record.bytes;
    recordBytes_ = original;
    for (const CodedField& field : Fields()) {
        const auto offset = static_cast<std::size_t>(field.given.data() - original.data());
        field.bytes.copy(recordBytes_.data() + offset, field.bytes.size());
    }
    record.leader = SamePart(record.leader, original, recordBytes_);
    for (CommFormatField& field : record.fields) {
        field.content = SamePart(field.content, original, recordBytes_);
    }
    record.bytes = recordBytes_;
}

void CodedFields::PutIntoFields(Record& record) {
    for (const CodedField& field : Fields()) {
        if (!field.IsChanged()) continue;
        if (field.index == CodedField::kLeader) {
            record.leader = field.bytes;
        } else {
            record.fields[field.index].content = field.bytes;
        }
    }
    record.bytes = {};
}

}  // namespace quillory
