#include <zorby/archive/SerializeList.h>
#include <zorby/controlfields/AdditionalMaterialsList.h>
#include <zorby/controlfields/detail/StandardWorkforms.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace zorby {

const CRuntimeClass CCFAdditionalMaterialsList::kRuntimeClass =
    RuntimeClassOf<CCFAdditionalMaterialsList>("CCFAdditionalMaterialsList");

namespace {

constexpr unsigned char kListVersion = 1;

}  // namespace

void CCFAdditionalMaterialsList::Add(std::unique_ptr<CCFAdditionalMaterial> entry) {
    if (entry != nullptr) entries_.push_back(std::move(entry));
}

int CCFAdditionalMaterialsList::AddEmptyAtEnd() {
    Add(std::make_unique<CCFAdditionalMaterial>());
    return 1;
}

void CCFAdditionalMaterialsList::AMAddDuplicateAtEnd(int index) {
    if (const CCFAdditionalMaterial* entry = GetAt(index)) {
        Add(std::make_unique<CCFAdditionalMaterial>(*entry));
    }
}

void CCFAdditionalMaterialsList::ChangeAdditionalMaterial(int index, MaterialType material,
                                                          CFType type006, CFType type007,
                                                          std::string_view field007,
                                                          std::string_view field006) {
    if (CCFAdditionalMaterial* entry = GetAt(index)) {
        entry->Create(material, type006, type007, field007, field006);
    }
}

void CCFAdditionalMaterialsList::GetDisplayableAM007006(int index, std::string& field007,
                                                        std::string& field006,
                                                        std::string& name) const {
    const CCFAdditionalMaterial* entry = GetAt(index);
    if (entry == nullptr) return;
    entry->GetAll(field006, field007);
    NameOfMaterial(entry->GetMaterialType(), name);
}

int CCFAdditionalMaterialsList::Get(int index, CFPart part, std::string& text) const {
    const CCFAdditionalMaterial* entry = GetAt(index);
    return entry == nullptr ? 0 : entry->Get(part, text);
}

int CCFAdditionalMaterialsList::Set(int index, CFPart part, std::string_view text) {
    CCFAdditionalMaterial* entry = GetAt(index);
    return entry == nullptr ? 0 : entry->Set(part, text);
}

int CCFAdditionalMaterialsList::GetPartSize(int index, CFPart part) const {
    const CCFAdditionalMaterial* entry = GetAt(index);
    return entry == nullptr ? 0 : entry->GetPartSize(part);
}

void CCFAdditionalMaterialsList::Set007Complete(int index, std::string_view field007) {
    if (CCFAdditionalMaterial* entry = GetAt(index)) entry->Set007Complete(field007);
}

CCFAdditionalMaterial* CCFAdditionalMaterialsList::GetAt(int index) const {
    return 0 <= index && index < GetSize() ? entries_[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

void CCFAdditionalMaterialsList::DeleteByNumber(int index) {
    if (GetAt(index) != nullptr) entries_.erase(entries_.begin() + index);
}

void CCFAdditionalMaterialsList::RemoveEmpty() {
    std::erase_if(entries_, [](const auto& entry) { return entry->IsEmpty(); });
}

void CCFAdditionalMaterialsList::CloneFrom(const CCFAdditionalMaterialsList& other) {
    if (this == &other) return;
    RemoveAll();
    for (const auto& entry : other.entries_) Add(std::make_unique<CCFAdditionalMaterial>(*entry));
}

int CCFAdditionalMaterialsList::IsEqualTo(const CCFAdditionalMaterialsList& other) const {
    return std::equal(
        entries_.begin(), entries_.end(), other.entries_.begin(), other.entries_.end(),
        [](const auto& left, const auto& right) { return left->IsEqualTo(*right) != 0; });
}

unsigned CCFAdditionalMaterialsList::GetMARCSize() const {
    return std::accumulate(
        entries_.begin(), entries_.end(), 0U,
        [](unsigned size, const auto& entry) { return size + entry->GetMARCSize(); });
}

void CCFAdditionalMaterialsList::AddToPseudoMARC(CPmarc& record) const {
    for (const auto& entry : entries_) entry->AddToPseudoMARC(record);
}

void CCFAdditionalMaterialsList::Serialize(CArchive& archive) {
    unsigned char version = kListVersion;
    SerializeElement(archive, version);
    if (version == kListVersion) SerializeList(archive, entries_);
}

int CCFAdditionalMaterialsList::GetSize() const {
    return static_cast<int>(entries_.size());
}

void CCFAdditionalMaterialsList::RemoveAll() {
    entries_.clear();
}

}  // namespace zorby
