#pragma once

#include <zorby/charset/UnicodeView.h>
#include <zorby/platform/EditPort.h>

#include <QPointer>
#include <QTextCursor>
#include <memory>
#include <string>
#include <string_view>

class QPlainTextEdit;

namespace quillory {

// The library's edit box as a Qt one, which shows the text in Unicode. Positions of the library
// are bytes, those of the box are units of UTF-16.
class MarcEditPort : public zorby::EditPort {
public:
    // Keeps the reference.
    explicit MarcEditPort(QPlainTextEdit& box);

    // Takes the caret and the selection from the box.
    void FollowBox();

    // As long as one lives, changes are not shown, and then all at once.
    class Pause {
    public:
        explicit Pause(MarcEditPort& port) : port_(port) { port_.isPaused_ = true; }
        ~Pause() {
            port_.isPaused_ = false;
            port_.ShowText();
        }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        MarcEditPort& port_;
    };

    void Show(bool show) override;
    void Enable(bool enable) override;
    void SetFocus() override;
    void SetText(std::string_view text) override;
    std::string GetText() const override { return text_; }
    void Check(bool /*check*/) override {}
    bool IsChecked() const override { return false; }
    void Select(int first, int last) override;
    void GetSelection(int& first, int& last) const override;
    int GetTextLength() const override { return static_cast<int>(text_.size()); }
    int GetCaret() const override { return caret_; }
    void ReplaceSelection(std::string_view text) override;
    void MoveCaret(zorby::EditKey key, bool extend) override;
    int GetFirstVisibleLine() const override;
    zorby::ControlPoint GetPointOf(int position) const override;
    int GetPositionAt(zorby::ControlPoint point) const override;
    int GetTextWidth(std::string_view text) const override;
    void SetFont(const zorby::CFont& font, bool redraw) override;
    zorby::CFont GetFont() const override { return font_; }
    int GetLeftMargin() const override;
    void SetLeftMargin(int pixels) override;
    void Invalidate() override;
    std::unique_ptr<zorby::OverlayPort> AddOverlay(std::string_view text) override;

private:
    void ShowText();
    void ShowCaret();
    void MovePage(QTextCursor& cursor, QTextCursor::MoveMode mode, bool down) const;
    int UnitAt(int byte) const;
    int ByteAt(int unit) const;

    QPlainTextEdit& box_;
    std::string text_;
    zorby::UnicodeView view_;
    int anchor_ = 0;  // the end of the selection that stays when the other one moves
    int caret_ = 0;
    bool isPaused_ = false;
    zorby::CFont font_;
};

}  // namespace quillory
