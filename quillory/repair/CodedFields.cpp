#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/repair/CodedFields.h>

#include <algorithm>
#include <functional>
#include <span>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view k008 = "008";

// Of several 008 the first one that has the length of the format, or else the first one, which is
// given.
std::size_t IndexOfMain008(const Record& record, std::size_t first) {
    const auto length = static_cast<std::size_t>(LengthOfForm(CF008Standard));
    const std::span fields(record.fields);
    const auto whole = std::ranges::find_if(fields.subspan(first), [&](const auto& field) {
        return field.tag == k008 && field.content.size() == length;
    });
    return whole == fields.end() ? first : static_cast<std::size_t>(&*whole - fields.data());
}

RepairClass ClassOf(FaultCode reason) {
    if (reason == FaultCode::kSecond008) return RepairClass::Repeated;
    return reason == FaultCode::kUnknownFirstByte ? RepairClass::UnknownValue : RepairClass::Length;
}

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

void CodedFields::Collect(const Record& record, CFType material) {
    material_ = material;
    count_ = 0;
    left_.clear();
    Add(CodedField::kLeader, Place::OfLeader(), CFLdr, record.leader);
    std::uint32_t count006 = 0;
    std::uint32_t count007 = 0;
    std::uint32_t count008 = 0;
    std::size_t main008 = 0;
    const std::span fields(record.fields);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!fields[i].IsControlField()) continue;
        const auto& [tag, content] = fields[i];
        switch (tag.back()) {
            case '6':
                Add(i, Place::OfField(tag, ++count006), MaterialOf006(content), content);
                break;
            case '7':
                Add(i, Place::OfField(tag, ++count007), CategoryOf007(content), content);
                break;
            case '8':
                if (count008 == 0) main008 = IndexOfMain008(record, i);
                Add008(i, Place::OfField(tag, ++count008), main008, content);
                break;
            default:
                break;
        }
    }
}

void CodedFields::Add008(std::size_t index, const Place& place, std::size_t main,
                         std::string_view given) {
    if (index == main) {
        Add(index, place, CF008Standard, given);
    } else {
        Leave(place, given, FaultCode::kSecond008);
    }
}

void CodedFields::Add(std::size_t index, const Place& place, CFType form, std::string_view given) {
    if (count_ == fields_.size()) fields_.emplace_back();
    CodedField& field = fields_[count_];
    field.index = index;
    field.place = place;
    field.form = form;
    field.layout = &LayoutOf(form, material_);
    field.given = given;
    field.isTouched = false;
    if (form == CF006None || form == CF007None) {
        Leave(place, given, FaultCode::kUnknownFirstByte);
    } else {
        ++count_;
    }
}

void CodedFields::Leave(const Place& place, std::string_view given, FaultCode reason) {
    const std::string bytes(given);
    left_.push_back({.kind = RepairKind::Left,
                     .repairClass = ClassOf(reason),
                     .place = place,
                     .before = bytes,
                     .after = bytes,
                     .fault = reason});
}

CodedField* CodedFields::Field008() {
    const auto fields = Fields();
    const auto found = std::ranges::find(fields, CF008Standard, &CodedField::form);
    return found == fields.end() ? nullptr : &*found;
}

void CodedFields::Leave(CodedField& field, FaultCode reason) {
    Leave(field.place, field.given, reason);
    std::rotate(&field, &field + 1, fields_.data() + count_);
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
               return field.Bytes().size() == field.given.size();
           });
}

void CodedFields::PutIntoBytes(Record& record) {
    const std::string_view original = record.bytes;
    recordBytes_ = original;
    for (const CodedField& field : Fields()) {
        if (!field.IsChanged()) continue;
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
