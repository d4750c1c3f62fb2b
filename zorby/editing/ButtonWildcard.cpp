#include <zorby/editing/ButtonWildcard.h>
#include <zorby/editing/EditControls.h>
#include <zorby/editing/EditMARCAlpha.h>

namespace zorby {

namespace {

using Command = CButtonWildcard::Command;

constexpr MenuEntry kContext[] = {
    {"Any &number of characters *", Command::kOneOrMoreCharacters},
    {"A &single character ?", Command::kSingleCharacter},
    {"A &question mark \\?", Command::kQuestionMark},
    {"An &asterisk \\*", Command::kAsterisk},
};

}  // namespace

void CButtonWildcard::InitializeYourself(EditControls& parent, CEditMARCAlpha* edit) {
    parent_ = &parent;
    edit_ = edit;
    focused_ = nullptr;
    button_.Enable(false);
}

int CButtonWildcard::ButtonWildcardOnCmdMsg(int id, int code) {
    if (edit_ || !parent_ || (code != CN_SetFocus && code != CN_KillFocus)) return 0;
    CEditMARCAlpha* const field = parent_->Field(id);
    if (!field || !field->WildcardsAllowed()) return 0;
    focused_ = field;
    button_.Enable(code == CN_SetFocus);
    return 0;
}

void CButtonWildcard::OnLButtonDown(ControlPoint point) {
    switch (CurrentMenuPort().PopUp(kContext, point)) {
        case kOneOrMoreCharacters:
            return OnContextOneormorecharacters();
        case kSingleCharacter:
            return OnContextSinglecharacter();
        case kQuestionMark:
            return OnContextQuestionmark();
        case kAsterisk:
            return OnContextAstrisk();
        default:
            return;
    }
}

void CButtonWildcard::Type(std::string_view bytes) {
    CEditMARCAlpha* const target = edit_ ? edit_ : focused_;
    if (!target) return;
    const int start = target->GetSel().start;
    target->SetSel(start, start);
    for (const char byte : bytes) target->OnChar(static_cast<unsigned char>(byte));
    target->Port().SetFocus();
}

}  // namespace zorby
