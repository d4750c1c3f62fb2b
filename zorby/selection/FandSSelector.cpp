#include <zorby/conditions/ZorbySearch.h>
#include <zorby/controls/detail/FlagGuard.h>
#include <zorby/selection/FandSSelector.h>
#include <zorby/selection/detail/TypedSelection.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <algorithm>

namespace zorby {

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr int kLine = 16;
constexpr int kButtonHeight = 24;
constexpr int kLeastTreeHeight = 60;

constexpr int kTreeControls[] = {CFandSSelector::kTree};
constexpr int kTextControls[] = {CFandSSelector::kLabel, CFandSSelector::kEdit,
                                 CFandSSelector::kExamplesTitle, CFandSSelector::kExamples};

// Gives boxes from top to bottom.
class Column {
public:
    explicit Column(const ControlBox& place)
        : left_(place.left + kMargin), top_(place.top + kLine), width_(place.width - 2 * kMargin) {}

    ControlBox Next(int height) {
        const ControlBox box{left_, top_, width_, height};
        top_ += height + kGap;
        return box;
    }
    int Top() const { return top_; }

private:
    int left_;
    int top_;
    int width_;
};

}  // namespace

void CFandSSelector::InitializeYourself(WindowPort& parent, const CFandSSelectorState& state,
                                        const ControlBox& place, int holdingsMode) {
    state_ = state;
    allSelected_ = state.allSelected;
    controls_ = {};
    controls_.SetWindow(parent);
    CreateControls(state, place);
    controls_.Text(kEdit).SetText(state.typedSelection);
    tree_.Attach(&controls_.Tree(kTree));
    tree_.SetOptions(state.allowWholeField, state.allowFieldGroups, state.singleSelection,
                     state.allow245h, state.allowSubfields);
    tree_.PopulateFieldGroups(state.treeSelection, state.treeValue, holdingsMode,
                              state.allow001And003);
    if (state.singleSelection) {
        controls_.At(kFromList).Check(state.selectFromList != 0);
        controls_.At(kFromText).Check(state.selectFromText != 0);
    }
    SetControlState();
}

// The two pairs of radio buttons are apart, so that each is a group of its own.
void CFandSSelector::CreateControls(const CFandSSelectorState& state, const ControlBox& place) {
    using enum ControlKind;
    const auto lines = 1 + static_cast<int>(std::ranges::count(state.examples, '\n'));
    Column column(place);
    controls_.Add({kGroup, Id::kGroup, state.title, place});
    if (state.showAllSelected) {
        controls_.Add({kRadio, kAll, "&All", column.Next(kLine)});
        controls_.Add({kRadio, kSelected, "&Selected", column.Next(kLine)});
    }
    controls_.Add({ControlKind::kLabel, Id::kLabel, state.listLabel, column.Next(kLine)});
    if (state.singleSelection) {
        controls_.Add({kRadio, kFromList, "Select from &list", column.Next(kLine)});
        controls_.Add({kRadio, kFromText, "Select from &text box", column.Next(kLine)});
    }
    const int below = kButtonHeight + kLine + lines * kLine + kButtonHeight + 4 * kGap + kMargin;
    const int treeHeight = place.top + place.height - column.Top() - below;
    controls_.Add(
        {ControlKind::kTree, Id::kTree, {}, column.Next(std::max(treeHeight, kLeastTreeHeight))});
    controls_.Add({kText, kEdit, {}, column.Next(kButtonHeight)});
    controls_.Add({ControlKind::kLabel, kExamplesTitle, "Examples:", column.Next(kLine)});
    controls_.Add({ControlKind::kLabel, kExamples, state.examples, column.Next(lines * kLine)});
    controls_.Add({kButton, kClear, "&Clear Selected", column.Next(kButtonHeight)});
}

void CFandSSelector::Destroy() {
    tree_.Attach(nullptr);
    controls_.Destroy();
}

void CFandSSelector::InitializeSelChangedCallBack(const SelChangedCallBack& callback,
                                                  WindowPort* window) {
    callback_ = callback;
    callbackWindow_ = window;
    tree_.InitializeSelChangedCallBack(callback, window);
}

void CFandSSelector::NotifyChanged() const {
    if (callback_) callback_(callbackWindow_);
}

CFandSSelectorErrorCode CFandSSelector::SpecificFieldEditIsOK(int& first, int& last, int allow245h,
                                                              const bool& checkFormat) const {
    const TypedSelectionRules rules{
        .allowWholeField = state_.allowWholeField != 0,
        .allow001And003 = state_.allow001And003 != 0,
        .allowBelow010 = state_.allowBelow010 != 0,
        .allowSubfields = state_.allowSubfields != 0,
        .allow245h = allow245h != 0,
        .checkFormat = checkFormat,
    };
    const std::string text = controls_.Text(kEdit).GetText();
    return CheckTypedSelection(Trimmed(text), rules, first, last);
}

void CFandSSelector::ReadSelection() {
    if (controls_.IsEmpty()) return;
    tree_.GetSelected(lastTree_);
    lastTyped_ = controls_.Text(kEdit).GetText();
}

CFandSSelectorErrorCode CFandSSelector::DoInOnOK(const bool& checkFormat) {
    if (IsAll()) return FSE_OK;
    ReadSelection();
    if (lastTyped_.empty()) return lastTree_.empty() ? FSE_EMPTY : FSE_OK;
    int first = -1;
    int last = -1;
    const CFandSSelectorErrorCode code =
        SpecificFieldEditIsOK(first, last, tree_.GetAllow245h(), checkFormat);
    if (code != FSE_OK) {
        controls_.At(kEdit).SetFocus();
        controls_.Text(kEdit).Select(first, last);
    }
    return code;
}

void CFandSSelector::GetSelection(std::string& treeText, std::string& typedText) {
    treeText.clear();
    typedText.clear();
    if (IsAll()) return;
    ReadSelection();
    treeText = lastTree_;
    typedText = lastTyped_;
}

void CFandSSelector::UpdateZorbySearch(CZorbySearch& search) {
    GetSelection(search.m_strTree, search.m_strUser);
}

void CFandSSelector::SetControlState() {
    controls_.EnableAll(enabled_ != 0);
    if (!enabled_ || controls_.IsEmpty()) return;
    if (state_.singleSelection) {
        return SetOpen(controls_.At(kFromList).IsChecked(), controls_.At(kFromText).IsChecked());
    }
    if (state_.showAllSelected) {
        controls_.At(kAll).Check(IsAll());
        controls_.At(kSelected).Check(!IsAll());
    }
    const bool isOpen = !state_.showAllSelected || !IsAll();
    SetOpen(isOpen, isOpen);
}

void CFandSSelector::SetOpen(bool tree, bool text) const {
    controls_.Enable(kTreeControls, tree);
    controls_.Enable(kTextControls, text);
}

int CFandSSelector::EnableWindow(int enable) {
    const int before = enabled_;
    if (isEnabling_) {
        controls_.At(kGroup).Enable(enable != 0);
        return before;
    }
    const FlagGuard enabling(isEnabling_);
    enabled_ = enable;
    SetControlState();
    return before;
}

void CFandSSelector::SetFocus() {
    const bool isTyped = state_.singleSelection && controls_.At(kFromText).IsChecked();
    controls_.At(isTyped ? kEdit : kTree).SetFocus();
}

int CFandSSelector::OnCmdMsg(int id, int code, TreeItem item) {
    if (controls_.IsEmpty()) return 0;
    if (id == kTree) return tree_.OnNotify(code, item);
    if (id == kEdit && code == CN_TextChanged) {
        NotifyChanged();
        return 1;
    }
    if (code != CN_Clicked || !controls_.Has(id) || !OnCommand(id)) return 0;
    NotifyChanged();
    return 1;
}

bool CFandSSelector::OnCommand(int id) {
    switch (id) {
        case kAll:
            OnAll();
            return true;
        case kSelected:
            OnSelected();
            return true;
        case kFromList:
            OnFromList();
            return true;
        case kFromText:
            OnFromText();
            return true;
        case kClear:
            ClearTyped();
            ClearTree();
            return true;
        default:
            return false;
    }
}

void CFandSSelector::OnAll() {
    allSelected_ = 1;
    ClearTyped();
    ClearTree();
    SetControlState();
}

void CFandSSelector::OnSelected() {
    allSelected_ = 0;
    SetControlState();
}

void CFandSSelector::OnFromList() {
    ClearTyped();
    controls_.At(kFromList).Check(true);
    controls_.At(kFromText).Check(false);
    SetOpen(true, false);
}

void CFandSSelector::OnFromText() {
    ClearTree();
    controls_.At(kFromList).Check(false);
    controls_.At(kFromText).Check(true);
    SetOpen(false, true);
    controls_.At(kEdit).SetFocus();
}

void CFandSSelector::ClearTyped() {
    controls_.Text(kEdit).SetText({});
}

void CFandSSelector::ClearTree() {
    tree_.DeselectAll();
}

}  // namespace zorby
