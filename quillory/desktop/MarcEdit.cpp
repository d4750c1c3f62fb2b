#include <quillory/desktop/MarcEdit.h>
#include <quillory/desktop/MarcPorts.h>
#include <quillory/desktop/MarcView.h>
#include <quillory/desktop/Texts.h>
#include <quillory/text/KeptLetters.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeToQm.h>
#include <zorby/editing/EditControls.h>

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>
#include <QTextOption>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace quillory {
namespace {

using zorby::EditKey;

constexpr unsigned char kBackspaceKey = 0x08;

EditKey KeyOf(int key) {
    constexpr std::pair<int, EditKey> kKeys[] = {
        {Qt::Key_Left, EditKey::kLeft},     {Qt::Key_Right, EditKey::kRight},
        {Qt::Key_Up, EditKey::kUp},         {Qt::Key_Down, EditKey::kDown},
        {Qt::Key_Home, EditKey::kHome},     {Qt::Key_End, EditKey::kEnd},
        {Qt::Key_PageUp, EditKey::kPageUp}, {Qt::Key_PageDown, EditKey::kPageDown},
        {Qt::Key_Delete, EditKey::kDelete}, {Qt::Key_Backspace, EditKey::kBackspace},
        {Qt::Key_Tab, EditKey::kTab},       {Qt::Key_Alt, EditKey::kAlt},
        {Qt::Key_A, EditKey::kA},           {Qt::Key_C, EditKey::kC},
        {Qt::Key_V, EditKey::kV},           {Qt::Key_X, EditKey::kX},
        {Qt::Key_Z, EditKey::kZ},
    };
    const auto* found = std::ranges::find(kKeys, key, &std::pair<int, EditKey>::first);
    return found == std::end(kKeys) ? EditKey::kOther : found->second;
}

zorby::KeyStroke StrokeOf(const QKeyEvent& key) {
    return {KeyOf(key.key()), key.modifiers().testFlag(Qt::ShiftModifier),
            key.modifiers().testFlag(Qt::ControlModifier)};
}

// AltGr is Ctrl and Alt on some systems.
bool TypesText(const QKeyEvent& key) {
    const bool isCtrl = key.modifiers().testFlag(Qt::ControlModifier);
    const bool isAlt = key.modifiers().testFlag(Qt::AltModifier);
    return isCtrl == isAlt && !key.text().isEmpty() && key.text().front().isPrint();
}

zorby::ControlPoint PointOf(const QPoint& point) {
    return {point.x(), point.y()};
}

// Nothing if the code lacks some of it, or does not give it back.
std::optional<std::string> CodeOf(const QString& text) {
    zorby::CodedText coded = zorby::UnicodeToQm(text.toStdU16String());
    const QString back = MarcText({coded.text, zorby::kDisplaySIL});
    const bool isWhole =
        coded.unplaced.empty() && back.normalized(QString::NormalizationForm_C) ==
                                      text.normalized(QString::NormalizationForm_C);
    return isWhole ? std::optional(std::move(coded.text)) : std::nullopt;
}

}  // namespace

MarcEdit::MarcEdit(QWidget* parent) : QPlainTextEdit(parent) {
    zorby::EditControls controls;
    controls.AddField(1, field_);
    zorby::CEditMARCAlpha::DoInOnInitDialog(controls);
    field_.SetContextMenu(this, zorby::kEditContextMenu, zorby::kSubmenuEditHoldings);
}

// A text of a script that is written from the right begins there.
void MarcEdit::Align(const QString& text) {
    const bool isFromRight = text.isRightToLeft();
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(isFromRight ? Qt::RightToLeft : Qt::LayoutDirectionAuto);
    option.setAlignment(isFromRight ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft);
    document()->setDefaultTextOption(option);
}

void MarcEdit::SetText(const QString& text) {
    given_ = text;
    wasCoded_ = false;
    Align(text);
    const auto code = CodeOf(text);
    isCoded_ = code.has_value();
    document()->setUndoRedoEnabled(!isCoded_);
    if (isCoded_) {
        field_.SetWindowTextA(*code);
        field_.UndoStateClear();
        field_.SetSel(field_.GetWindowTextLengthA(), field_.GetWindowTextLengthA());
    } else {
        setPlainText(text);
        moveCursor(QTextCursor::End);
    }
}

QString MarcEdit::Text() const {
    if (!isCoded_) return TextIn(*this);
    std::string code;
    field_.GetWindowTextA(code);
    const QString text = MarcText({code, zorby::kDisplaySIL});
    return ToQt(WithLettersKept(given_.toStdString(), text.toStdString()));
}

// Taking all of it back later leads to the library's field again.
void MarcEdit::EditAsUnicode() {
    if (!isCoded_) return;
    isCoded_ = false;
    wasCoded_ = true;
    document()->setUndoRedoEnabled(true);
}

void MarcEdit::UndoInUnicode() {
    document()->undo();
    if (!wasCoded_ || document()->isUndoAvailable()) return;
    isCoded_ = true;
    wasCoded_ = false;
    document()->setUndoRedoEnabled(false);
    port_.FollowBox();
}

void MarcEdit::TypeText(const QString& text) {
    const zorby::CodedText coded = zorby::UnicodeToQm(text.toStdU16String());
    if (!coded.unplaced.empty()) EditAsUnicode();
    if (!isCoded_) {
        insertPlainText(text);
        return;
    }
    const MarcEditPort::Pause pause(port_);
    for (const char code : coded.text) {
        field_.OnChar(zorby::CSGetKeyFromQmCode(static_cast<unsigned char>(code)));
    }
}

void MarcEdit::TypeCharacter(unsigned id) {
    if (isCoded_) {
        field_.AddCharFromButton(id);
    } else {
        insertPlainText(CharacterText(id));
    }
}

void MarcEdit::Paste() {
    if (!QtClipboard::IsCodable()) EditAsUnicode();
    if (isCoded_) {
        field_.EditPaste();
    } else {
        insertPlainText(QtClipboard::Text());
    }
}

int MarcEdit::OnCmdMsg(int id, int code, zorby::TreeItem item) {
    if (id != zorby::kEditPaste) return field_.OnCmdMsg(id, code, item);
    Paste();
    return 1;
}

// A key that is typed here is no shortcut of the window. With nothing to undo here, the window
// undoes what was done before.
bool MarcEdit::IsOwnKey(const QKeyEvent& key) const {
    if (TypesText(key)) return true;
    const zorby::KeyStroke stroke = StrokeOf(key);
    switch (stroke.key) {
        case EditKey::kOther:
        case EditKey::kTab:
            return false;
        case EditKey::kAlt:
            return field_.CanPasteNextNumber() != 0;
        case EditKey::kZ:
            return stroke.ctrl && field_.UndoStateHasChanged() != 0;
        case EditKey::kA:
        case EditKey::kC:
        case EditKey::kV:
        case EditKey::kX:
            return stroke.ctrl && !stroke.shift;
        case EditKey::kDelete:
            return !stroke.ctrl && !stroke.shift;
        default:
            return !stroke.ctrl && !key.modifiers().testFlag(Qt::AltModifier);
    }
}

bool MarcEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isCoded_) {
        event->setAccepted(IsOwnKey(*static_cast<QKeyEvent*>(event)));
        return true;
    }
    return QPlainTextEdit::event(event);
}

void MarcEdit::keyPressEvent(QKeyEvent* event) {
    isAltAlone_ = event->key() == Qt::Key_Alt;
    if (event->matches(QKeySequence::Paste)) return Paste();
    if (!isCoded_) {
        if (event->matches(QKeySequence::Undo)) return UndoInUnicode();
        return QPlainTextEdit::keyPressEvent(event);
    }
    if (TypesText(*event)) return TypeText(event->text());
    if (event->key() == Qt::Key_Backspace) return field_.OnChar(kBackspaceKey);
    if (!isAltAlone_ && !field_.OnKeyDown(StrokeOf(*event))) event->ignore();
}

void MarcEdit::keyReleaseEvent(QKeyEvent* event) {
    const bool isAlt = event->key() == Qt::Key_Alt && std::exchange(isAltAlone_, false);
    if (isCoded_ && isAlt && field_.OnKeyDown({EditKey::kAlt})) return;
    QPlainTextEdit::keyReleaseEvent(event);
}

// The box shows what is being composed; what comes of it is typed.
void MarcEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (!isCoded_) return QPlainTextEdit::inputMethodEvent(event);
    QInputMethodEvent composed(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composed);
    if (!event->commitString().isEmpty()) TypeText(event->commitString());
    event->accept();
}

void MarcEdit::mousePressEvent(QMouseEvent* event) {
    if (!isCoded_) return QPlainTextEdit::mousePressEvent(event);
    if (event->button() != Qt::LeftButton) return;
    field_.OnLButtonDown(PointOf(event->position().toPoint()),
                         event->modifiers().testFlag(Qt::ShiftModifier));
}

void MarcEdit::mouseMoveEvent(QMouseEvent* event) {
    if (!isCoded_) return QPlainTextEdit::mouseMoveEvent(event);
    field_.OnMouseMove(PointOf(event->position().toPoint()),
                       event->buttons().testFlag(Qt::LeftButton));
}

void MarcEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (!isCoded_) return QPlainTextEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) {
        field_.OnLButtonUp(PointOf(event->position().toPoint()));
    }
}

void MarcEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!isCoded_) return QPlainTextEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) {
        field_.OnLButtonDblClk(PointOf(event->position().toPoint()));
    }
}

void MarcEdit::contextMenuEvent(QContextMenuEvent* event) {
    if (!isCoded_) return QPlainTextEdit::contextMenuEvent(event);
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    field_.OnContextMenu(PointOf(isKey ? cursorRect().bottomLeft() : event->pos()));
}

// What is dropped comes to the caret, which the box has moved.
void MarcEdit::insertFromMimeData(const QMimeData* source) {
    if (isCoded_) port_.FollowBox();
    if (source->hasText()) TypeText(OneLine(source->text()));
}

void MarcEdit::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    field_.OnSetFocus();
}

void MarcEdit::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    isAltAlone_ = false;
    field_.OnKillFocus(nullptr);
}

void MarcEdit::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    field_.OnVscroll();
}

void MarcEdit::scrollContentsBy(int dx, int dy) {
    QPlainTextEdit::scrollContentsBy(dx, dy);
    field_.OnVscroll();
}

}  // namespace quillory
