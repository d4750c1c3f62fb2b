#include <zorby/editing/ButtonAlphabet.h>
#include <zorby/editing/EditControls.h>
#include <zorby/editing/EditMARCAlpha.h>

#include <utility>

namespace zorby {

namespace {

constexpr std::pair<ButtonState, int> kBitmaps[] = {
    {ButtonState::kNormal, CButtonAlphabet::kBitmapNormal},
    {ButtonState::kSelected, CButtonAlphabet::kBitmapSelected},
    {ButtonState::kFocused, CButtonAlphabet::kBitmapFocused},
    {ButtonState::kDisabled, CButtonAlphabet::kBitmapDisabled},
};

}  // namespace

CButtonAlphabet::~CButtonAlphabet() {
    while (!fields_.empty()) fields_.back()->SetButtonAlphabet(nullptr);
}

void CButtonAlphabet::InitializeYourself(unsigned id, EditControls& parent) {
    BitmapButtonPort* const button = parent.Button(static_cast<int>(id));
    if (!button) return;
    for (const auto& [state, resource] : kBitmaps) {
        if (!button->LoadBitmap(state, resource)) return;
    }
    button_ = button;
    button_->SetTabStop(false);
    button_->SizeToContent();
    button_->Enable(false);
    for (CEditMARCAlpha* field : parent.Fields()) field->SetButtonAlphabet(this);
}

void CButtonAlphabet::SetActiveFocus(CEditMARCAlpha* control) {
    target_ = control;
    if (button_) button_->Enable(control != nullptr);
}

void CButtonAlphabet::Forget(const CEditMARCAlpha& control) {
    std::erase(fields_, &control);
    if (well_ && well_->Field() == &control) well_.reset();
    if (target_ == &control) SetActiveFocus(nullptr);
}

void CButtonAlphabet::OnLButtonDown() {
    if (!target_ || !button_) return;
    well_ = std::make_unique<CPopupAlphaWell>();
    well_->Create(*button_, target_);
}

void CButtonAlphabet::Serve(CEditMARCAlpha& control) {
    fields_.push_back(&control);
}

CEditMARCAlpha* CButtonAlphabet::Target() const {
    return target_;
}

CPopupAlphaWell* CButtonAlphabet::Well() {
    return well_.get();
}

}  // namespace zorby
