#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsType.h>

#include <algorithm>
#include <utility>

namespace zorby {
namespace {

using Fields = std::vector<std::unique_ptr<CInfoAboutHoldingsField>>;

template <class Test>
const CInfoAboutHoldingsField* FindFirst(const Fields& fields, Test test) {
    const auto found =
        std::ranges::find_if(fields, [&](const auto& field) { return test(*field); });
    return found == fields.end() ? nullptr : found->get();
}

}  // namespace

const CRuntimeClass CInfoAboutHoldingsType::kRuntimeClass =
    RuntimeClassOf<CInfoAboutHoldingsType>("CInfoAboutHoldingsType");

void CInfoAboutHoldingsType::Serialize(CArchive& archive) {
    SerializeList(archive, names_);
    SerializeItems(archive, typeFlags_, holdingsTypeID_, typeOption_);
    SerializeList(archive, fields_);
}

void CInfoAboutHoldingsType::Create(std::string_view name, EHOLDINGSTYPE type,
                                    std::uint32_t typeFlags, int typeOption) {
    names_.assign(1, std::string(name));
    holdingsTypeID_ = type;
    typeFlags_ = typeFlags;
    typeOption_ = typeOption;
}

void CInfoAboutHoldingsType::AddOldName(std::string_view name) {
    names_.emplace_back(name);
}

void CInfoAboutHoldingsType::AddField(std::string_view name, unsigned tag, std::int8_t subfield,
                                      char repeatDelimiter, EHOLDINGSID id, int onePerRecord,
                                      std::string_view helpText) {
    AddField(name, 0, tag, subfield, repeatDelimiter, id, onePerRecord, helpText);
}

void CInfoAboutHoldingsType::AddField(std::string_view name, std::int32_t extraValue, unsigned tag,
                                      std::int8_t subfield, char repeatDelimiter, EHOLDINGSID id,
                                      int onePerRecord, std::string_view helpText) {
    auto field = std::make_unique<CInfoAboutHoldingsField>();
    field->Create(name, tag, subfield, repeatDelimiter, id, onePerRecord, helpText);
    field->SetExtraValue(extraValue);
    fields_.push_back(std::move(field));
}

std::string CInfoAboutHoldingsType::GetName() const {
    return names_.empty() ? std::string() : names_.front();
}

const CInfoAboutHoldingsField* CInfoAboutHoldingsType::GetAt(int index) const {
    return 0 <= index && index < GetSize() ? fields_[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

const CInfoAboutHoldingsField* CInfoAboutHoldingsType::GetFieldInfo(EHOLDINGSID id) const {
    return FindFirst(fields_, [&](const auto& field) { return field.GetHoldingsID() == id; });
}

const CInfoAboutHoldingsField* CInfoAboutHoldingsType::FindFieldAndSubfield(
    unsigned tag, std::int8_t subfield) const {
    return FindFirst(fields_, [&](const auto& field) {
        return field.GetTag() == tag && field.GetSubfield() == subfield;
    });
}

void CInfoAboutHoldingsType::GetFieldNameFromID(EHOLDINGSID id, std::string& name) const {
    const CInfoAboutHoldingsField* field = GetFieldInfo(id);
    name = field ? field->GetName() : std::string();
}

std::string CInfoAboutHoldingsType::GetHelpStringForID(EHOLDINGSID id) const {
    const CInfoAboutHoldingsField* field = GetFieldInfo(id);
    return field ? field->GetHelpText() : std::string();
}

bool CInfoAboutHoldingsType::FindField(unsigned tag) const {
    return FindFirst(fields_, [&](const auto& field) { return field.GetTag() == tag; }) != nullptr;
}

bool CInfoAboutHoldingsType::FieldIsOnePerRecord(unsigned tag) const {
    return FindFirst(fields_, [&](const auto& field) {
               return field.GetTag() == tag && field.OnePerRecord() != 0;
           }) != nullptr;
}

std::string CInfoAboutHoldingsType::GetCurrentHoldingsFields() const {
    if (const char* fixed = HoldingsRowOf(holdingsTypeID_).tagsWithoutElements) return fixed;
    std::string tags;
    for (const auto& field : fields_) {
        const std::string tag = std::to_string(field->GetTag());
        if (tags.find(tag) != std::string::npos) continue;
        if (!tags.empty()) tags += ',';
        tags += tag;
    }
    return tags;
}

const std::vector<std::string>& CInfoAboutHoldingsType::GetNames() const {
    return names_;
}

EHOLDINGSTYPE CInfoAboutHoldingsType::GetHoldingsTypeID() const {
    return holdingsTypeID_;
}

std::uint32_t CInfoAboutHoldingsType::GetTypeFlags() const {
    return typeFlags_;
}

int CInfoAboutHoldingsType::GetTypeOption() const {
    return typeOption_;
}

int CInfoAboutHoldingsType::GetSize() const {
    return static_cast<int>(fields_.size());
}

}  // namespace zorby
