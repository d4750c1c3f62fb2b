#include <quillory/checks/CodedFields.h>
#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>

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

void CodedFields::Add(CodedField field) {
    const bool isKnown = field.form != CF006None && field.form != CF007None;
    if (!isKnown) {
        left_.push_back({std::move(field), "its first byte is no type of record or category"});
    } else if (field.form == CF008Standard && field.occurrence > 1) {
        left_.push_back({std::move(field), "a record has one 008"});
    } else {
        fields_.push_back(std::move(field));
    }
}

void CodedFields::Collect(const Record& record) {
    fields_.clear();
    left_.clear();
    Add({CodedField::kLeader, 1, CFLdr, record.leader, "", "", ""});
    std::size_t count006 = 0;
    std::size_t count007 = 0;
    std::size_t count008 = 0;
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const CommFormatField& field = record.fields[i];
        if (field.tag == kTag006) {
            Add({i, ++count006, MaterialOf006(field.content), field.content, "", "", ""});
        } else if (field.tag == kTag007) {
            Add({i, ++count007, CategoryOf007(field.content), field.content, "", "", ""});
        } else if (field.tag == kTag008) {
            Add({i, ++count008, CF008Standard, field.content, "", "", ""});
        }
    }
}

CodedField* CodedFields::Field008() {
    const auto found = std::find_if(fields_.begin(), fields_.end(), [](const CodedField& field) {
        return field.form == CF008Standard;
    });
    return found == fields_.end() ? nullptr : &*found;
}

void CodedFields::Leave008(std::string reason) {
    for (auto field = fields_.begin(); field != fields_.end(); ++field) {
        if (field->form != CF008Standard) continue;
        left_.push_back({std::move(*field), std::move(reason)});
        fields_.erase(field);
        return;
    }
}

bool CodedFields::PutInPlace(Record& record) {
    const bool isInPlace =
        !record.bytes.empty() && LiesIn(record.leader, record.bytes) &&
        std::all_of(record.fields.begin(), record.fields.end(),
                    [&](const auto& field) { return LiesIn(field.content, record.bytes); }) &&
        std::all_of(fields_.begin(), fields_.end(), [](const CodedField& field) {
            return field.after.size() == field.given.size();
        });
    if (!isInPlace) return false;
    const std::string_view from = record.bytes;
    bytes_ = from;
    for (const CodedField& field : fields_) {
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
    const bool isChanged = std::any_of(fields_.begin(), fields_.end(),
                                       [](const CodedField& field) { return field.IsChanged(); });
    if (!isChanged || PutInPlace(record)) return;
    for (const CodedField& field : fields_) {
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
