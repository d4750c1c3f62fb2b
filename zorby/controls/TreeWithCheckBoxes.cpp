#include <zorby/controls/TreeWithCheckBoxes.h>
#include <zorby/text/detail/CaseFolded.h>

#include <algorithm>
#include <utility>

namespace zorby {

void CTreeWithCheckBoxes::SetOptions(int level2Checkable, int rootCheckable, int singleSelection) {
    level2Checkable_ = level2Checkable != 0;
    rootCheckable_ = rootCheckable != 0;
    singleSelection_ = singleSelection != 0;
}

void CTreeWithCheckBoxes::InitializeSelChangedCallBack(SelChangedCallBack callback,
                                                       WindowPort* window) {
    callback_ = std::move(callback);
    callbackWindow_ = window;
}

void CTreeWithCheckBoxes::PrePopulateSetup() {
    nodes_.assign(1, {});
    if (port_) port_->RemoveAll();
}

TreeItem CTreeWithCheckBoxes::InsertItem(TreeItem parent, std::string_view text,
                                         std::uint32_t data) {
    return InsertAt(parent, GetChildren(parent).size(), text, data);
}

TreeItem CTreeWithCheckBoxes::InsertItemSorted(TreeItem parent, std::string_view text,
                                               std::uint32_t data) {
    const std::vector<TreeItem>& siblings = GetChildren(parent);
    const auto place = std::ranges::upper_bound(
        siblings, text, LessCaseFolded,
        [this](TreeItem sibling) { return std::string_view(At(sibling).text); });
    return InsertAt(parent, static_cast<std::size_t>(place - siblings.begin()), text, data);
}

TreeItem CTreeWithCheckBoxes::InsertAt(TreeItem parent, std::size_t index, std::string_view text,
                                       std::uint32_t data) {
    if (parent != kTreeRoot && !Has(parent)) return kTreeRoot;
    const auto item = static_cast<TreeItem>(nodes_.size());
    nodes_.push_back({parent, std::string(text), data, kNoBox, {}});
    std::vector<TreeItem>& siblings = At(parent).children;
    siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(index), item);
    if (port_) port_->Insert(item, parent, static_cast<int>(index), text);
    SetItemSelection(item, kClear);
    return item;
}

int CTreeWithCheckBoxes::GetItemSelection(TreeItem item) const {
    return Has(item) ? At(item).state : kNoBox;
}

bool CTreeWithCheckBoxes::HasBox(TreeItem item) const {
    const int level = GetLevel(item);
    if (!rootCheckable_) return level != 1 || At(item).text == "Holdings";
    return level2Checkable_ || level != 2;
}

void CTreeWithCheckBoxes::SetItemSelection(TreeItem item, int state) {
    if (!Has(item)) return;
    At(item).state = HasBox(item) ? state : kNoBox;
    if (port_) port_->SetBox(item, static_cast<TreeBox>(At(item).state + 1));
}

void CTreeWithCheckBoxes::ChangeSelectionState(TreeItem item) {
    if (GetItemSelection(item) == kNoBox) return;
    if (oneRootOnly_) DeselectAllAtRootExcept(item);
    const bool checks = GetItemSelection(item) == kClear;
    if (checks && singleSelection_) DeselectAll();
    SetItemSelection(item, checks ? kChecked : kClear);
    UpdateChildren(item);
    UpdateParents(item);
    NotifyChanged();
}

void CTreeWithCheckBoxes::NotifyChanged() const {
    if (callback_) callback_(callbackWindow_);
}

void CTreeWithCheckBoxes::UpdateChildren(TreeItem item) {
    const int state = GetItemSelection(item);
    ForEachBelow(item, [&](TreeItem below) {
        SetItemSelection(below, state);
        if (state == kChecked && GetItemSelection(below) == kNoBox) Populate(below);
    });
}

// Items without a box stand for what is below them.
int CTreeWithCheckBoxes::StateBelow(TreeItem item) const {
    bool hasChecked = false;
    bool hasClear = false;
    for (const TreeItem child : GetChildren(item)) {
        const int state = At(child).state == kNoBox ? StateBelow(child) : At(child).state;
        hasChecked = hasChecked || state == kChecked || state == kPartly;
        hasClear = hasClear || state == kClear || state == kPartly;
    }
    if (!hasChecked) return kClear;
    return hasClear || singleSelection_ ? kPartly : kChecked;
}

void CTreeWithCheckBoxes::UpdateParents(TreeItem item) {
    for (item = GetParent(item); item != kTreeRoot; item = GetParent(item)) {
        SetItemSelection(item, StateBelow(item));
    }
}

void CTreeWithCheckBoxes::DeselectSiblings(TreeItem item) {
    if (!Has(item)) return;
    for (const TreeItem sibling : GetChildren(GetParent(item))) {
        if (sibling != item) DeselectAll(sibling);
    }
}

void CTreeWithCheckBoxes::DeselectAll(TreeItem item) {
    SetItemSelection(item, kClear);
    ForEachBelow(item, [this](TreeItem below) { SetItemSelection(below, kClear); });
}

void CTreeWithCheckBoxes::DeselectAllAtRootExcept(TreeItem item) {
    while (GetLevel(item) > 1) item = GetParent(item);
    DeselectSiblings(item);
}

void CTreeWithCheckBoxes::ExpandParents(TreeItem item) const {
    if (!port_) return;
    for (item = GetParent(item); item != kTreeRoot; item = GetParent(item)) {
        port_->Expand(item, true);
    }
}

void CTreeWithCheckBoxes::ExpandSelected() const {
    ForEachBelow(kTreeRoot, [this](TreeItem item) {
        if (At(item).state > kClear) ExpandParents(item);
    });
}

void CTreeWithCheckBoxes::ScrollFirstChecked() const {
    TreeItem first = kTreeRoot;
    ForEachBelow(kTreeRoot, [&](TreeItem item) {
        if (first == kTreeRoot && At(item).state == kChecked) first = item;
    });
    if (port_ && first != kTreeRoot) port_->ScrollTo(first);
}

int CTreeWithCheckBoxes::OnNotify(int code, TreeItem item) {
    if (!Has(item)) return 0;
    if (code == CN_Clicked) {
        ChangeSelectionState(item);
        return 1;
    }
    if (code != CN_Expanding) return 0;
    Populate(item);
    return 1;
}

bool CTreeWithCheckBoxes::Has(TreeItem item) const {
    return item > kTreeRoot && static_cast<std::size_t>(item) < nodes_.size();
}

TreeItem CTreeWithCheckBoxes::GetParent(TreeItem item) const {
    return Has(item) ? At(item).parent : kTreeRoot;
}

const std::vector<TreeItem>& CTreeWithCheckBoxes::GetChildren(TreeItem item) const {
    static const std::vector<TreeItem> none;
    return item == kTreeRoot || Has(item) ? At(item).children : none;
}

std::string CTreeWithCheckBoxes::GetItemText(TreeItem item) const {
    return Has(item) ? At(item).text : std::string();
}

std::uint32_t CTreeWithCheckBoxes::GetItemData(TreeItem item) const {
    return Has(item) ? At(item).data : 0;
}

int CTreeWithCheckBoxes::GetLevel(TreeItem item) const {
    int level = 0;
    for (; Has(item); item = GetParent(item)) ++level;
    return level;
}

TreeItem CTreeWithCheckBoxes::FindItem(const std::vector<std::string>& path) const {
    TreeItem found = kTreeRoot;
    for (const std::string& step : path) {
        const std::vector<TreeItem>& children = GetChildren(found);
        const auto child = std::ranges::find(
            children, step, [this](TreeItem each) -> const std::string& { return At(each).text; });
        if (child == children.end()) return kTreeRoot;
        found = *child;
    }
    return found;
}

void CTreeWithCheckBoxes::SetExpandable(TreeItem item) const {
    if (port_) port_->SetExpandable(item, true);
}

void CTreeWithCheckBoxes::Collapse(TreeItem item) const {
    if (port_) port_->Expand(item, false);
}

// Visits an item before those below it. The visit may insert children of the item that it is at.
template <class Visit>
void CTreeWithCheckBoxes::ForEachBelow(TreeItem item, Visit visit) const {
    for (std::size_t i = 0; i < GetChildren(item).size(); ++i) {
        const TreeItem child = GetChildren(item)[i];
        visit(child);
        ForEachBelow(child, visit);
    }
}

void CTreeWithCheckBoxes::Attach(TreePort* port) {
    port_ = port;
}

void CTreeWithCheckBoxes::SetOneRootOnly(int oneRootOnly) {
    oneRootOnly_ = oneRootOnly != 0;
}

}  // namespace zorby
