#include <zorby/platform/MemoryEdit.h>

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace zorby {

namespace {

class MemoryOverlay : public OverlayPort {
public:
    explicit MemoryOverlay(std::shared_ptr<ShownOverlay> shown) : shown_(std::move(shown)) {}
    ~MemoryOverlay() override { shown_->isOpen = shown_->isShown = false; }
    MemoryOverlay(const MemoryOverlay&) = delete;
    MemoryOverlay& operator=(const MemoryOverlay&) = delete;

    bool IsOpen() const override { return shown_->isOpen; }
    void Place(const ControlBox& box) override { shown_->box = box; }
    void Show(bool show) override { shown_->isShown = show; }
    void Draw(std::span<const OverlayRun> runs) override {
        shown_->runs.assign(runs.begin(), runs.end());
    }

private:
    std::shared_ptr<ShownOverlay> shown_;
};

}  // namespace

int MemoryEdit::Inside(int position) const {
    return std::clamp(position, 0, GetTextLength());
}

void MemoryEdit::SetFocus() {
    MemoryControlOf::SetFocus();
    if (focus) focus->Give(target);
}

void MemoryEdit::SetText(std::string_view newText) {
    text = newText;
    Select(0, 0);
}

void MemoryEdit::Select(int first, int last) {
    const bool isNone = first == -1 && last == -1;
    anchor = isNone ? caret : Inside(first);
    caret = isNone ? caret : Inside(last);
    ScrollToCaret();
}

void MemoryEdit::GetSelection(int& first, int& last) const {
    std::tie(first, last) = std::minmax(Inside(anchor), Inside(caret));
}

void MemoryEdit::ReplaceSelection(std::string_view newText) {
    int first = 0;
    int last = 0;
    GetSelection(first, last);
    const int end = first + static_cast<int>(newText.size());
    text.replace(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first), newText);
    Select(end, end);
}

int MemoryEdit::PositionFor(EditKey key) const {
    const int lineStart = caret - caret % columns;
    switch (key) {
        case EditKey::kUp:
            return caret < columns ? caret : caret - columns;
        case EditKey::kDown:
            return lineStart + columns > GetTextLength() ? caret : caret + columns;
        case EditKey::kHome:
            return lineStart;
        case EditKey::kEnd:
            return std::min(lineStart + columns - 1, GetTextLength());
        case EditKey::kPageUp:
            return std::max(caret - columns * lines, caret % columns);
        case EditKey::kPageDown:
            return caret + columns * lines;
        default:
            return caret;
    }
}

void MemoryEdit::MoveCaret(EditKey key, bool extend) {
    const int position = Inside(PositionFor(key));
    Select(extend ? anchor : position, position);
}

void MemoryEdit::ScrollToCaret() {
    const int line = caret / columns;
    firstLine = std::clamp(firstLine, std::max(0, line - lines + 1), line);
}

ControlPoint MemoryEdit::GetPointOf(int position) const {
    const int place = Inside(position);
    return {leftMargin + place % columns * kCharWidth, (place / columns - firstLine) * kLineHeight};
}

int MemoryEdit::GetPositionAt(ControlPoint point) const {
    const int line = std::max(0, firstLine + point.y / kLineHeight);
    const int column = std::clamp((point.x - leftMargin) / kCharWidth, 0, columns - 1);
    if (line > GetTextLength() / columns) return GetTextLength();
    return Inside(line * columns + column);
}

int MemoryEdit::GetTextWidth(std::string_view drawn) const {
    return static_cast<int>(drawn.size()) * kCharWidth;
}

void MemoryEdit::SetFont(const CFont& newFont, bool redraw) {
    font = newFont;
    if (redraw) Invalidate();
}

std::unique_ptr<OverlayPort> MemoryEdit::AddOverlay(std::string_view overlayText) {
    overlay = std::make_shared<ShownOverlay>();
    overlay->text = overlayText;
    return std::make_unique<MemoryOverlay>(overlay);
}

}  // namespace zorby
