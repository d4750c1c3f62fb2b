#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/copies/HoldingsDataRecord.h>
#include <zorby/copies/detail/HoldingsDataOrder.h>
#include <zorby/copies/detail/HoldingsIDRoles.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace zorby {
namespace {

constexpr unsigned char kRecordVersion = 2;
constexpr unsigned char kVersionWithoutHolds = 1;
constexpr unsigned kFieldOverhead = 15;  // directory entry, indicators and field terminator
constexpr auto kTypeNotTold = static_cast<EHOLDINGSTYPE>(-1);

EHOLDINGSTYPE Migrated(EHOLDINGSTYPE stored) {
    const EHOLDINGSTYPE successor = HoldingsRowOf(stored).successor;
    const bool isInForce =
        successor != HT_NONE && CHoldingsSelector::GetCurrentHoldingsTypeID() == successor;
    return isInForce ? successor : stored;
}

}  // namespace

void HoldingItemHold::Serialize(CArchive& archive) {
    SerializeItems(archive, tag, subfield, text);
}

const CRuntimeClass CHoldingsDataRecord::kRuntimeClass =
    RuntimeClassOf<CHoldingsDataRecord>("CHoldingsDataRecord");

CHoldingsDataRecord::CHoldingsDataRecord(EHOLDINGSTYPE type)
    : holdingsType_(type == kTypeNotTold ? HT_TYPE_1 : type) {}

void CHoldingsDataRecord::Serialize(CArchive& archive) {
    unsigned char version = kRecordVersion;
    SerializeElement(archive, version);
    if (version != kRecordVersion && version != kVersionWithoutHolds) return;
    if (version == kRecordVersion) SerializeList(archive, holds_);
    SerializeElement(archive, holdingsType_);
    if (archive.IsLoading()) holdingsType_ = Migrated(holdingsType_);
    SerializeList(archive, elements_);
}

void CHoldingsDataRecord::CloneFrom(const CHoldingsDataRecord& record) {
    if (&record == this) return;
    holdingsType_ = record.holdingsType_;
    pageHasData_ = record.pageHasData_;
    for (const auto& element : record.elements_) {
        elements_.push_back(std::make_unique<CHoldingsDataElement>());
        elements_.back()->CloneFrom(*element);
    }
    holds_.insert(holds_.end(), record.holds_.begin(), record.holds_.end());
}

void CHoldingsDataRecord::Add(EHOLDINGSID id, std::string_view text, int keepEmpty, int userValue) {
    if (!MoveToFree(id)) return;
    if (keepEmpty == 0 && text.empty()) return;
    auto element = std::make_unique<CHoldingsDataElement>();
    element->Create(id, text, userValue);
    elements_.push_back(std::move(element));
}

void CHoldingsDataRecord::Set(EHOLDINGSID id, std::string_view text) {
    if (CHoldingsDataElement* element = Find(id)) {
        element->SetText(text);
    } else {
        Add(id, text, 0, 0);
    }
}

std::string CHoldingsDataRecord::Get(EHOLDINGSID id) const {
    const CHoldingsDataElement* element = Find(id);
    return element ? element->GetText() : std::string();
}

void CHoldingsDataRecord::Get(EHOLDINGSID id, std::string& text) const {
    text = Get(id);
}

void CHoldingsDataRecord::Get(EHOLDINGSID id, std::string& text, CHoldingsDataElement*& element) {
    element = Find(id);
    text = Get(id);
}

CHoldingsDataElement* CHoldingsDataRecord::GetAt(int index) {
    return 0 <= index && index < GetSize() ? elements_[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

const CHoldingsDataElement* CHoldingsDataRecord::GetAt(int index) const {
    return const_cast<CHoldingsDataRecord*>(this)->GetAt(index);
}

void CHoldingsDataRecord::RemoveAll() {
    elements_.clear();
}

void CHoldingsDataRecord::AddHoldingItemHold(int tag, char subfield, std::string_view text) {
    holds_.push_back({tag, subfield, std::string(text)});
}

bool CHoldingsDataRecord::IsEmpty() const {
    if (HoldingsRowOf(holdingsType_).automatic == EHOLDINGSID{}) {
        return elements_.empty() && pageHasData_ == 0;
    }
    return std::ranges::none_of(elements_, [](const auto& element) {
        return !element->GetText().empty() && !IsAutomatic(element->GetID());
    });
}

bool CHoldingsDataRecord::HasNoText() const {
    return std::ranges::none_of(elements_, [](const auto& element) {
        return !TrimmedRight(element->GetText()).empty() && !IsAutomatic(element->GetID());
    });
}

bool CHoldingsDataRecord::IsEqualTo(CHoldingsDataRecord& record) {
    if (holdingsType_ != record.holdingsType_ || GetSize() != record.GetSize()) return false;
    Sort();
    record.Sort();
    return std::ranges::equal(elements_, record.elements_, [](const auto& left, const auto& right) {
        return left->IsEqualTo(*right);
    });
}

void CHoldingsDataRecord::Sort() {
    std::ranges::stable_sort(elements_, std::greater<>(),
                             [](const auto& element) { return element->GetID(); });
}

void CHoldingsDataRecord::SortByTagAndSubfield() {
    SortForOutput(elements_);
}

unsigned CHoldingsDataRecord::GetMARCSize() const {
    unsigned size = 0;
    for (const auto& element : elements_) size += element->GetMARCSize();
    return size == 0 ? 0 : size + kFieldOverhead;
}

CHoldingsDataElement* CHoldingsDataRecord::Find(EHOLDINGSID id) const {
    const auto found =
        std::ranges::find(elements_, id, [](const auto& element) { return element->GetID(); });
    return found == elements_.end() ? nullptr : found->get();
}

bool CHoldingsDataRecord::IsFree(EHOLDINGSID id) const {
    const CHoldingsDataElement* element = Find(id);
    return !element || element->GetText().empty();
}

// Moves to the number that takes a further value of a repeating item. Returns false if there is no
// room for the value.
bool CHoldingsDataRecord::MoveToFree(EHOLDINGSID& id) const {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    if (!row) return true;
    if (id == row->pair.first && Find(id)) id = row->pair.second;
    for (const auto& triple : row->triples) {
        if (id != triple.front()) continue;
        const auto free =
            std::ranges::find_if(triple, [this](EHOLDINGSID each) { return IsFree(each); });
        if (free == triple.end()) return false;
        id = *free;
        return true;
    }
    return true;
}

EHOLDINGSTYPE CHoldingsDataRecord::GetHoldingsType() const {
    return holdingsType_;
}

const CHoldingsDataRecordList* CHoldingsDataRecord::GetOwner() const {
    return owner_;
}

int CHoldingsDataRecord::GetSize() const {
    return static_cast<int>(elements_.size());
}

const std::vector<HoldingItemHold>& CHoldingsDataRecord::GetHolds() const {
    return holds_;
}

void CHoldingsDataRecord::SetPageHasData(int hasData) {
    pageHasData_ = hasData;
}

}  // namespace zorby
