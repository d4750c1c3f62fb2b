#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <quillory/repair/CodedFields.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view kTag006 = "006";
constexpr std::string_view kTag007 = "007";
constexpr std::string_view kTag008 = "008";

// The same view in a copy of the bytes that it looks into.
std::string_view Moved(std::string_view view, std::string_view from, const std::string& to) {
    return {to.data() + (view.data() - from.data()), view.size()};
}

bool LiesIn(std::string_view view, std::string_view bytes) {
    const std::less_equal<> isBefore;
    return isBefore(bytes.data(), view.data()) &&
           isBefore(view.data() + view.size(), bytes.data() + bytes.size());
}

}  // namespace

std::string_view CodedField::Tag() const {
    if (form == CFLdr) return "leader";
    if (form == CF008Standard) return kTag008;
    return IsFormOf006(form) || form == CF006None ? kTag006 : kTag007;
}

void CodedFields::Add(std::size_t index, std::size_t occurrence, CFType form,
                      std::string_view given) {
    if (count_ == fields_.size()) fields_.emplace_back();
    CodedField& field = fields_[count_];
    field.index = index;
    field.occurrence = occurrence;
    field.form = form;
    field.given = given;
    if (form == CF006None || form == CF007None) {
        left_.push_back({field, "its first byte is no type of record or category"});
    } else if (form == CF008Standard && occurrence > 1) {
        left_.push_back({field, "a record has one 008"});
    } else {
        ++count_;
    }
}

void CodedFields::Collect(const Record& record) {
    count_ = 0;
    left_.clear();
    Add(CodedField::kLeader, 1, CFLdr, record.leader);
    std::size_t count006 = 0;
    std::size_t count007 = 0;
    std::size_t count008 = 0;
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const CommFormatField& field = record.fields[i];
        if (!field.IsControlField()) continue;
        if (field.tag == kTag006) {
            Add(i, ++count006, MaterialOf006(field.content), field.content);
        } else if (field.tag == kTag007) {
            Add(i, ++count007, CategoryOf007(field.content), field.content);
        } else if (field.tag == kTag008) {
            Add(i, ++count008, CF008Standard, field.content);
        }
    }
}

CodedField* CodedFields::Field008() {
    for (CodedField& field : Fields()) {
        if (field.form == CF008Standard) return &field;
    }
    return nullptr;
}

void CodedFields::Leave008(std::string reason) {
    CodedField* field008 = Field008();
    if (field008 == nullptr) return;
    left_.push_back({*field008, std::move(reason)});
    std::rotate(field008, field008 + 1, fields_.data() + count_);
    --count_;
}

bool CodedFields::PutInPlace(Record& record) {
    const bool isInPlace =
        !record.bytes.empty() && LiesIn(record.leader, record.bytes) &&
        std::all_of(record.fields.begin(), record.fields.end(),
                    [&](const auto& field) { return LiesIn(field.content, record.bytes); }) &&
        std::all_of(Fields().begin(), Fields().end(), [](const CodedField& field) {
            return field.after.size() == field.given.size();
        });
    if (!isInPlace) return false;
    const std::string_view from = record.bytes;
    bytes_ = from;
    for (const CodedField& field : Fields()) {
        const auto offset = static_cast<std::size_t>(field.given.data() - from.data());
        field.after.copy(bytes_.data() + offset, field.after.size());
    }
    record.leader = Moved(record.leader, from, bytes_);
    for (CommFormatField& field : record.fields) {
        field.content = Moved(field.content, from, bytes_);
    }
    record.bytes = bytes_;
    return true;
}

void CodedFields::PutInto(Record& record) {
    const bool isChanged = std::any_of(Fields().begin(), Fields().end(),
                                       [](const CodedField& field) { return field.IsChanged(); });
    if (!isChanged || PutInPlace(record)) return;
    for (const CodedField& field : Fields()) {
        if (!field.IsChanged()) continue;
        if (field.index == CodedField::kLeader) {
            record.leader = field.after;
        } else {
            record.fields[field.index].content = field.after;
        }
    }
    record.bytes = {};
}

}  // namespace quillory
