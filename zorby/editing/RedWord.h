#pragma once

#include <zorby/Export.h>
#include <zorby/platform/EditPort.h>

#include <memory>
#include <string>
#include <string_view>

namespace zorby {

// A word that is marked in an edit box: an overlay exactly over the word shows it in red, and the
// characters of it that are selected in the colours of a selection.
class ZORBY_EXPORT RedWord {
public:
    static constexpr ControlColor kRed = 0x0000FF;
    static constexpr ControlColor kRedSelected = 0xFFFF00;
    static constexpr int kHeight = 15;

    // `first` and `last` are the positions of the first and the last character of the word in the
    // text. The edit box must outlive this object.
    RedWord(EditPort& edit, int first, int last, std::string_view word);

    // What the overlay covers: from where the word begins, as wide as it is drawn.
    ControlBox ComputeRedWordRect() const;
    void Place() const;
    void Hide() const;
    void Draw() const;
    // Shows which characters of the word are selected.
    void CheckForRedWordSelection();
    // Follows the text if it was scrolled, or if the selection has moved.
    void Follow();

private:
    bool IsOpen() const { return overlay_ && overlay_->IsOpen(); }
    bool HasScrolled();
    bool HasSelectionMoved();

    EditPort& edit_;
    int first_;
    int last_;
    std::string word_;
    std::unique_ptr<OverlayPort> overlay_;
    int coveredFirst_ = -1;
    int coveredLast_ = -1;
    int firstVisibleLine_ = -1;
    int lastSelStart_ = -1;
    int lastSelEnd_ = -1;
};

}  // namespace zorby
