#include <quillory/desktop/MarcEditPort.h>
#include <quillory/desktop/MarcView.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/WordOverlay.h>

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>
#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

namespace quillory {
namespace {

std::optional<QTextCursor::MoveOperation> OperationOf(zorby::EditKey key) {
    switch (key) {
        case zorby::EditKey::kUp:
            return QTextCursor::Up;
        case zorby::EditKey::kDown:
            return QTextCursor::Down;
        case zorby::EditKey::kHome:
            return QTextCursor::StartOfLine;
        case zorby::EditKey::kEnd:
            return QTextCursor::EndOfLine;
        default:
            return std::nullopt;
    }
}

}  // namespace

MarcEditPort::MarcEditPort(QPlainTextEdit& box) : box_(box), view_({}, zorby::kDisplaySIL) {}

int MarcEditPort::UnitAt(int byte) const {
    return static_cast<int>(view_.UnitAt(static_cast<std::size_t>(byte)));
}

int MarcEditPort::ByteAt(int unit) const {
    return static_cast<int>(view_.ByteAt(static_cast<std::size_t>(unit)));
}

void MarcEditPort::FollowBox() {
    const QTextCursor cursor = box_.textCursor();
    anchor_ = ByteAt(cursor.anchor());
    caret_ = ByteAt(cursor.position());
}

void MarcEditPort::Show(bool show) {
    box_.setVisible(show);
}

void MarcEditPort::Enable(bool enable) {
    box_.setEnabled(enable);
}

void MarcEditPort::SetFocus() {
    box_.setFocus();
}

void MarcEditPort::SetText(std::string_view text) {
    text_ = text;
    anchor_ = caret_ = 0;
    ShowText();
}

// Only what differs is replaced, so that a screen reader hears of that alone.
void MarcEditPort::ShowText() {
    if (isPaused_) return;
    view_ = ViewOfDisplay(text_);
    const QString now = MarcText(view_);
    const QString old = TextIn(box_);
    const auto front = std::mismatch(old.begin(), old.end(), now.begin(), now.end());
    const auto back = std::mismatch(old.rbegin(), std::make_reverse_iterator(front.first),
                                    now.rbegin(), std::make_reverse_iterator(front.second));
    const auto from = static_cast<int>(front.first - old.begin());
    const auto tail = static_cast<int>(back.first - old.rbegin());
    QTextCursor cursor(box_.document());
    cursor.setPosition(from);
    cursor.setPosition(static_cast<int>(old.size()) - tail, QTextCursor::KeepAnchor);
    cursor.insertText(now.mid(from, now.size() - tail - from));
    ShowCaret();
}

void MarcEditPort::ShowCaret() {
    if (isPaused_) return;
    QTextCursor cursor = box_.textCursor();
    cursor.setPosition(UnitAt(anchor_));
    cursor.setPosition(UnitAt(caret_), QTextCursor::KeepAnchor);
    box_.setTextCursor(cursor);
}

void MarcEditPort::Select(int first, int last) {
    const auto inside = [this](int position) { return std::clamp(position, 0, GetTextLength()); };
    const bool isNone = first == -1 && last == -1;
    anchor_ = isNone ? caret_ : inside(first);
    caret_ = isNone ? caret_ : inside(last);
    ShowCaret();
}

void MarcEditPort::GetSelection(int& first, int& last) const {
    std::tie(first, last) = std::minmax(anchor_, caret_);
}

void MarcEditPort::ReplaceSelection(std::string_view text) {
    const auto [first, last] = std::minmax(anchor_, caret_);
    text_.replace(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first), text);
    anchor_ = caret_ = first + static_cast<int>(text.size());
    ShowText();
}

void MarcEditPort::MoveCaret(zorby::EditKey key, bool extend) {
    const auto mode = extend ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
    QTextCursor cursor = box_.textCursor();
    if (const auto operation = OperationOf(key)) {
        cursor.movePosition(*operation, mode);
    } else {
        MovePage(cursor, mode, key == zorby::EditKey::kPageDown);
    }
    caret_ = ByteAt(cursor.position());
    if (!extend) anchor_ = caret_;
    ShowCaret();
}

void MarcEditPort::MovePage(QTextCursor& cursor, QTextCursor::MoveMode mode, bool down) const {
    const int lines = std::max(1, box_.viewport()->height() / box_.fontMetrics().lineSpacing());
    cursor.movePosition(down ? QTextCursor::Down : QTextCursor::Up, mode, lines);
}

int MarcEditPort::GetFirstVisibleLine() const {
    return box_.verticalScrollBar()->value();
}

zorby::ControlPoint MarcEditPort::GetPointOf(int position) const {
    QTextCursor cursor(box_.document());
    cursor.setPosition(UnitAt(std::clamp(position, 0, GetTextLength())));
    const QPoint corner = box_.cursorRect(cursor).topLeft();
    return {corner.x(), corner.y()};
}

int MarcEditPort::GetPositionAt(zorby::ControlPoint point) const {
    return ByteAt(box_.cursorForPosition(QPoint(point.x, point.y)).position());
}

int MarcEditPort::GetTextWidth(std::string_view text) const {
    const QString shown = MarcText(ViewOfDisplay(std::string(text)));
    return box_.fontMetrics().horizontalAdvance(shown);
}

void MarcEditPort::SetFont(const zorby::CFont& font, bool redraw) {
    font_ = font;
    QFont shown = box_.font();
    if (!font.faceName.empty()) shown.setFamily(QString::fromStdString(font.faceName));
    if (font.pointSize > 0) shown.setPointSize(font.pointSize);
    if (font.height != 0) shown.setPixelSize(std::abs(font.height));
    shown.setWeight(static_cast<QFont::Weight>(font.weight));
    shown.setItalic(font.italic);
    box_.setFont(shown);
    if (redraw) Invalidate();
}

int MarcEditPort::GetLeftMargin() const {
    return static_cast<int>(box_.document()->documentMargin());
}

void MarcEditPort::SetLeftMargin(int pixels) {
    box_.document()->setDocumentMargin(pixels);
}

void MarcEditPort::Invalidate() {
    box_.viewport()->update();
}

std::unique_ptr<zorby::OverlayPort> MarcEditPort::AddOverlay(std::string_view text) {
    return std::make_unique<WordOverlay>(*box_.viewport(), text);
}

}  // namespace quillory
