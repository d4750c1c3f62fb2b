#pragma once

#include <zorby/Export.h>
#include <zorby/platform/ControlPort.h>
#include <zorby/platform/Font.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zorby {

// Keys that the library tells apart. What types a character comes as that character.
enum class EditKey : std::int32_t {
    kOther,
    kLeft,
    kRight,
    kUp,
    kDown,
    kHome,
    kEnd,
    kPageUp,
    kPageDown,
    kDelete,
    kBackspace,
    kTab,
    kAlt,  // pressed and released alone
    kA,
    kC,
    kV,
    kX,
    kZ,
};

struct KeyStroke {
    EditKey key = EditKey::kOther;
    bool shift = false;
    bool ctrl = false;
};

// A point in a control, in pixels from its upper left corner.
struct ControlPoint {
    int x = 0;
    int y = 0;
};

// Colours as 0xBBGGRR.
using ControlColor = std::uint32_t;

// A piece of text in one colour, on the colour of windows or on that of a selection.
struct OverlayRun {
    int x = 0;  // where it begins, in pixels from the left edge
    std::string text;
    ControlColor color = 0;
    bool isHighlighted = false;
};

// A small window over an edit box, which shows a line of text. Destroying the port removes it.
class ZORBY_EXPORT OverlayPort {
public:
    virtual ~OverlayPort() = default;

    // Returns false once the toolkit has destroyed the window, as it does with those in a dialog.
    virtual bool IsOpen() const = 0;
    // The box is one in the edit box.
    virtual void Place(const ControlBox& box) = 0;
    virtual void Show(bool show) = 0;
    virtual void Draw(std::span<const OverlayRun> runs) = 0;
};

// An edit box in which each byte of the text is one position. A byte 0 is a character that the
// font can't show, and counts like any other. The library handles keys, clicks and the clipboard,
// and a host leaves none of them to the edit box itself, except the wheel.
//
// A text that is set puts the caret at its start. A selection may be backwards: then `first` is
// greater than `last`, where the caret is. GetSelection gives the smaller position first.
class ZORBY_EXPORT EditPort : public TextPort {
public:
    virtual int GetTextLength() const = 0;
    virtual int GetCaret() const = 0;
    // Puts the caret after the new text and scrolls to it.
    virtual void ReplaceSelection(std::string_view text) = 0;
    // Moves the caret by what is shown, for the keys up, down, home, end, page up and page down.
    // The other end of the selection stays if `extend` is set, else the selection becomes empty.
    virtual void MoveCaret(EditKey key, bool extend) = 0;

    virtual int GetFirstVisibleLine() const = 0;
    // The upper left corner of a character. A position after the text counts as its end.
    virtual ControlPoint GetPointOf(int position) const = 0;
    // The position of the character at a point, or of the one nearest to it.
    virtual int GetPositionAt(ControlPoint point) const = 0;
    // In the font of the control, in pixels.
    virtual int GetTextWidth(std::string_view text) const = 0;

    virtual void SetFont(const CFont& font, bool redraw) = 0;
    virtual CFont GetFont() const = 0;
    // How far the text is from the left edge, in pixels.
    virtual int GetLeftMargin() const = 0;
    virtual void SetLeftMargin(int pixels) = 0;
    virtual void Invalidate() = 0;
    virtual std::unique_ptr<OverlayPort> AddOverlay(std::string_view text) = 0;
};

}  // namespace zorby
