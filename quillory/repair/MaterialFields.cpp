#include <quillory/coded/Elements.h>
#include <quillory/repair/MaterialFields.h>

#include <algorithm>
#include <span>
#include <string_view>

namespace quillory {
namespace {

using namespace zorby;

bool Lacks(const AdditionalFields& additional, CFType category) {
    if (additional.field006 == nullptr || additional.field007 != nullptr) return false;
    const CodedField& field006 = *additional.field006;
    return Belongs007To(MaterialCodes::Of006(field006.form, field006.bytes), category);
}

}  // namespace

void MaterialFields::Sort(CodedFields& fields) {
    leader_ = &fields.Leader();
    field008_ = fields.Field008();
    field007_ = nullptr;
    microforms_.clear();
    additional_.clear();
    for (CodedField& field : fields.Fields()) {
        if (IsFormOf006(field.form)) additional_.push_back({&field, nullptr});
    }
    with006_ = additional_.size();
    const std::string_view bytes008 =
        field008_ == nullptr ? "" : std::string_view(field008_->bytes);
    const MaterialCodes main = MaterialCodes::OfRecord(leader_->bytes, bytes008);
    for (CodedField& field : fields.Fields()) {
        if (IsFormOf007(field.form)) Sort007(field, main);
    }
}

void MaterialFields::Sort007(CodedField& field007, const MaterialCodes& main) {
    if (field007.form == CF007Microform) {
        microforms_.push_back(&field007);
    } else if (field007_ == nullptr && Belongs007To(main, field007.form)) {
        field007_ = &field007;
    } else {
        SortAdditional007(field007);
    }
}

void MaterialFields::SortAdditional007(CodedField& field007) {
    const auto with006 = std::span(additional_).first(with006_);
    const auto partner =
        std::ranges::find_if(with006, [&](const auto& one) { return Lacks(one, field007.form); });
    if (partner == with006.end()) {
        additional_.push_back({nullptr, &field007});
    } else {
        partner->field007 = &field007;
    }
}

}  // namespace quillory
