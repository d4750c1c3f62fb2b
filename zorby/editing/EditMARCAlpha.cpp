#include <zorby/charset/Convert.h>
#include <zorby/charset/QmCode.h>
#include <zorby/editing/ButtonAlphabet.h>
#include <zorby/editing/EditControls.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/detail/DisplayText.h>
#include <zorby/platform/MemoryEdit.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <utility>

namespace zorby {

CEditMARCAlpha::CEditMARCAlpha() : ownPort_(std::make_unique<MemoryEdit>()), port_(*ownPort_) {}

CEditMARCAlpha::CEditMARCAlpha(EditPort& port) : port_(port) {}

CEditMARCAlpha::~CEditMARCAlpha() {
    SetButtonAlphabet(nullptr);
}

void CEditMARCAlpha::SetWindowTextA(std::string_view text) {
    constexpr int kRoom = 16;
    realText_.emplace(text, kRoom);
    ReloadControlFromBuffer();
}

void CEditMARCAlpha::GetWindowTextA(std::string& text) const {
    text = RealText();
}

int CEditMARCAlpha::GetWindowTextLengthA() const {
    return realText_ ? realText_->Length() : 0;
}

std::string_view CEditMARCAlpha::RealText() const {
    return realText_ ? realText_->Text() : std::string_view();
}

void CEditMARCAlpha::ReloadControlFromBuffer() {
    port_.SetText(DisplayText(RealText()));
}

void CEditMARCAlpha::QmToDisplay(const char* source, char* target) {
    CSQmToDisplay(source, target, kDisplayANSI, 0);
}

int CEditMARCAlpha::InSIL() {
    return CSInSIL();
}

void CEditMARCAlpha::ReplaceSelAndBufferMaint(std::string_view text, int updateBuffer) {
    std::string plain;
    CGeneral::TextToQmCharSet(text.data(), plain, static_cast<unsigned>(text.size()));
    if (updateBuffer != 0) BufferMaintEditPaste(plain);
    port_.ReplaceSelection(plain);
}

CEditMARCAlpha::Selection CEditMARCAlpha::GetSel() const {
    int first = 0;
    int last = 0;
    port_.GetSelection(first, last);
    const int length = GetWindowTextLengthA();
    return {std::clamp(std::min(first, last), 0, length),
            std::clamp(std::max(first, last), 0, length)};
}

void CEditMARCAlpha::SetNextNumberCallback(NextNumber callback) {
    nextNumber_ = std::move(callback);
}

void CEditMARCAlpha::SetButtonAlphabet(CButtonAlphabet* button) {
    if (buttonAlphabet_) buttonAlphabet_->Forget(*this);
    buttonAlphabet_ = button;
    if (button) button->Serve(*this);
}

void CEditMARCAlpha::OnSetFocus() {
    if (buttonAlphabet_) buttonAlphabet_->SetActiveFocus(this);
    if (redWord_) redWord_->Draw();
}

void CEditMARCAlpha::OnKillFocus(const FocusTarget* gains) {
    const bool staysInCharge = dynamic_cast<const CButtonAlphabet*>(gains) != nullptr;
    if (buttonAlphabet_ && !staysInCharge) buttonAlphabet_->SetActiveFocus(nullptr);
}

void CEditMARCAlpha::OnSize() {
    constexpr int kWidestMargin = 1;
    if (port_.GetLeftMargin() > kWidestMargin) port_.SetLeftMargin(0);
}

void CEditMARCAlpha::SetSel(int anchor, int caret) {
    port_.Select(anchor, caret);
}

EditPort& CEditMARCAlpha::Port() {
    return port_;
}

const EditPort& CEditMARCAlpha::Port() const {
    return port_;
}

void CEditMARCAlpha::SetWildcardsAllowed(int allowed) {
    wildcardsAllowed_ = allowed;
}

int CEditMARCAlpha::WildcardsAllowed() const {
    return wildcardsAllowed_;
}

void CEditMARCAlpha::SetLimitText(int bytes) {
    limit_ = bytes;
}

const RedWord* CEditMARCAlpha::MarkedWord() const {
    return redWord_.get();
}

}  // namespace zorby
