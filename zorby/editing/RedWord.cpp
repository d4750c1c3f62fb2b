#include <zorby/editing/RedWord.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zorby {

RedWord::RedWord(EditPort& edit, int first, int last, std::string_view word)
    : edit_(edit), first_(first), last_(last), word_(word), overlay_(edit.AddOverlay(word)) {
    Place();
}

ControlBox RedWord::ComputeRedWordRect() const {
    const ControlPoint corner = edit_.GetPointOf(first_);
    return {corner.x, corner.y, edit_.GetTextWidth(word_), kHeight};
}

void RedWord::Place() const {
    if (!IsOpen()) return;
    overlay_->Place(ComputeRedWordRect());
    overlay_->Show(true);
    Draw();
}

void RedWord::Hide() const {
    if (IsOpen()) overlay_->Show(false);
}

void RedWord::Draw() const {
    if (!IsOpen()) return;
    std::vector<OverlayRun> runs = {{0, word_, kRed, false}};
    const int end = std::min(coveredLast_ + 1, static_cast<int>(word_.size()));
    for (int i = std::max(coveredFirst_, 0); i < end; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int x = edit_.GetTextWidth(std::string_view(word_).substr(0, at));
        runs.push_back({x, word_.substr(at, 1), kRedSelected, true});
    }
    overlay_->Draw(runs);
}

void RedWord::CheckForRedWordSelection() {
    int start = 0;
    int end = 0;
    edit_.GetSelection(start, end);
    const bool isCovered = start != end && start <= last_ && end >= first_ + 1;
    coveredFirst_ = isCovered ? std::max(start - first_, 0) : -1;
    coveredLast_ = isCovered ? std::min(end - first_ - 1, last_ - first_) : -1;
    Draw();
}

bool RedWord::HasScrolled() {
    const int line = edit_.GetFirstVisibleLine();
    if (line == firstVisibleLine_) return false;
    firstVisibleLine_ = line;
    return true;
}

bool RedWord::HasSelectionMoved() {
    int start = 0;
    int end = 0;
    edit_.GetSelection(start, end);
    if (start == lastSelStart_ && end == lastSelEnd_) return false;
    lastSelStart_ = start;
    lastSelEnd_ = end;
    return true;
}

void RedWord::Follow() {
    if (!IsOpen()) return;
    if (HasScrolled() || HasSelectionMoved()) {
        Hide();
        edit_.Invalidate();
    }
    Place();
}

}  // namespace zorby
