#pragma once

#include <zorby/Export.h>
#include <zorby/platform/EditPort.h>
#include <zorby/platform/FocusTarget.h>
#include <zorby/platform/MemoryControls.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// An overlay in memory.
struct ShownOverlay {
    std::string text;
    ControlBox box;
    std::vector<OverlayRun> runs;
    bool isShown = false;
    bool isOpen = true;  // a test clears it as a toolkit does that destroys a window
};

// An edit box in memory. Its characters are all of one size, and its lines are broken after
// `columns` characters.
class ZORBY_EXPORT MemoryEdit : public MemoryControlOf<EditPort> {
public:
    static constexpr int kCharWidth = 8;
    static constexpr int kLineHeight = 16;

    explicit MemoryEdit(int number = 0) : MemoryControlOf({ControlKind::kText, number, {}, {}}) {}

    void SetFocus() override;
    void SetText(std::string_view newText) override;
    void Select(int first, int last) override;
    void GetSelection(int& first, int& last) const override;
    int GetTextLength() const override { return static_cast<int>(text.size()); }
    int GetCaret() const override { return caret; }
    void ReplaceSelection(std::string_view newText) override;
    void MoveCaret(EditKey key, bool extend) override;
    int GetFirstVisibleLine() const override { return firstLine; }
    ControlPoint GetPointOf(int position) const override;
    int GetPositionAt(ControlPoint point) const override;
    int GetTextWidth(std::string_view drawn) const override;
    void SetFont(const CFont& newFont, bool redraw) override;
    CFont GetFont() const override { return font; }
    int GetLeftMargin() const override { return leftMargin; }
    void SetLeftMargin(int pixels) override { leftMargin = pixels; }
    void Invalidate() override { ++timesInvalidated; }
    std::unique_ptr<OverlayPort> AddOverlay(std::string_view overlayText) override;

    // Null until an overlay is added; then the last one, also after it was removed.
    std::shared_ptr<ShownOverlay> overlay;
    // Who is told that the control has the focus, and where it is kept; both may be null.
    FocusTarget* target = nullptr;
    MemoryFocus* focus = nullptr;
    CFont font;
    int columns = 40;
    int lines = 4;  // that are shown
    int firstLine = 0;
    int leftMargin = 0;
    int anchor = 0;  // the end of the selection that stays when the other one moves
    int caret = 0;
    int timesInvalidated = 0;

private:
    int Inside(int position) const;
    int PositionFor(EditKey key) const;
    void ScrollToCaret();
};

}  // namespace zorby
