#pragma once

#include <zorby/Export.h>
#include <zorby/platform/ControlPort.h>
#include <zorby/platform/MenuPort.h>

#include <string_view>

namespace zorby {

class CEditMARCAlpha;
class EditControls;

// The button with a menu of the characters that mean something in a search with wildcards
// (WildPattern). They go to one field, or to the one with the focus that allows wildcards.
class ZORBY_EXPORT CButtonWildcard {
public:
    enum Command : std::int32_t {
        kOneOrMoreCharacters = 10311,
        kSingleCharacter = 10312,
        kQuestionMark = 10313,
        kAsterisk = 10314,
    };

    // The button must outlive this object.
    explicit CButtonWildcard(ControlPort& button) : button_(button) {}
    CButtonWildcard(const CButtonWildcard&) = delete;
    CButtonWildcard& operator=(const CButtonWildcard&) = delete;

    // Disables the button. Without `edit` the fields of the parent take turns; with it, the host
    // enables the button itself. The parent, its fields and `edit` must outlive this object.
    void InitializeYourself(EditControls& parent, CEditMARCAlpha* edit);
    // Follows the focus. Always returns 0, since the command is for others too.
    int ButtonWildcardOnCmdMsg(int id, int code);

    // Opens the menu at a point of the button.
    void OnLButtonDown(ControlPoint point);
    void OnContextOneormorecharacters() { Type("*"); }
    void OnContextSinglecharacter() { Type("?"); }
    void OnContextQuestionmark() { Type("\\?"); }
    void OnContextAstrisk() { Type("\\*"); }

private:
    // At the start of the selection, which is kept.
    void Type(std::string_view bytes);

    ControlPort& button_;
    EditControls* parent_ = nullptr;
    CEditMARCAlpha* edit_ = nullptr;
    CEditMARCAlpha* focused_ = nullptr;
};

}  // namespace zorby
