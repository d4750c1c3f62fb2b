#include <quillory/cataloging/Pattern.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>
#include <quillory/text/QmText.h>
#include <zorby/record/Pmarc.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr char kBlankSign = '_';

char IndicatorOf(char stored) {
    return stored == '\0' || stored == kBlankSign ? ' ' : stored;
}

}  // namespace

const std::string* PatternField::Find(char code) const {
    const auto found = std::ranges::find(subfields, code, &SubfieldText::code);
    return found == subfields.end() ? nullptr : &found->text;
}

const SubfieldText* PatternField::FirstOfItsOwn() const {
    constexpr char kRelationship = 'i';
    const auto first = std::ranges::find_if(
        subfields, [](const SubfieldText& subfield) { return subfield.code != kRelationship; });
    return first == subfields.end() ? nullptr : &*first;
}

Pattern::Pattern(zorby::TemplateHolder workform)
    : workform_(std::move(workform)), id_(workform_->GetOwnID()) {
    TakeControlFields();
    TakeFields();
}

std::string Pattern::Name() const {
    return QmToUtf8(workform_->GetName());
}

void Pattern::TakeControlFields() {
    zorby::CPmarc record;
    workform_->GetMainMaterial().AddToPseudoMARC(record);
    workform_->GetAMList().AddToPseudoMARC(record);
    for (const std::string& field : record) {
        const unsigned tag = static_cast<unsigned>(std::stoul(field.substr(0, kTagSize)));
        if (tag == 0) {
            leader_ = field.substr(kTagSize);
        } else if (field.find_first_not_of(' ', kTagSize) != field.npos) {  // not room for one
            controlFields_.push_back({tag, field.substr(kTagSize)});
        }
        if (!std::ranges::all_of(field, [](char c) { return ' ' <= c && c <= '~'; })) {
            throw EntryError({FaultCode::kOddControlFields, {}, Name()});
        }
    }
}

void Pattern::TakeFields() {
    const zorby::CInfoAboutDefaultData* data = nullptr;
    for (int i = 0; (data = workform_->GetDefaultDataAt(i)) != nullptr; ++i) {
        if (data->GetTag() != 0) {
            fields_.push_back(
                {data->GetTag(),
                 {IndicatorOf(data->GetIndicator(1)), IndicatorOf(data->GetIndicator(2))},
                 {}});
        }
        if (fields_.empty()) continue;  // a subfield without a field
        fields_.back().subfields.push_back({data->GetSubCode(), QmToUtf8(data->GetDefaultData())});
    }
}

void Pattern::SetLibraryCode(const std::string& code) {
    constexpr unsigned kSource = 40;
    for (PatternField& field : fields_) {
        if (field.tag != kSource) continue;
        for (SubfieldText& subfield : field.subfields) {
            const bool isAgency = subfield.code == 'a' || subfield.code == 'c';
            if (isAgency && subfield.text.empty()) subfield.text = code;
        }
    }
}

std::string Pattern::IndicatorsOf(unsigned tag) const {
    return {IndicatorOf(workform_->FieldIndicator(tag, 1)),
            IndicatorOf(workform_->FieldIndicator(tag, 2))};
}

const std::string& Pattern::CodesOf(unsigned tag) const {
    const auto [known, isNew] = codes_.try_emplace(tag);
    if (isNew) known->second = workform_->SubsInTemplateOrder(tag);
    return known->second;
}

}  // namespace quillory
