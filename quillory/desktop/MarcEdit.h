#pragma once

#include <quillory/desktop/MarcEditPort.h>
#include <zorby/editing/EditMARCAlpha.h>

#include <QPlainTextEdit>

namespace quillory {

// The box in which a person types the text of a subfield. The library's field for MARC text does
// what keys, mouse and menu say, as long as its one-byte code has all of the text. A text in other
// scripts is edited as Unicode, by the box itself; what is typed or pasted of them turns the one
// into the other.
class MarcEdit : public QPlainTextEdit, private zorby::CommandTarget {
    Q_OBJECT

public:
    explicit MarcEdit(QWidget* parent = nullptr);

    // The caret is then at the end.
    void SetText(const QString& text);
    // The letters that were not edited are spelled as in the text that was set.
    QString Text() const;
    // Whether the library's field is in charge.
    bool IsCoded() const { return isCoded_; }
    zorby::CEditMARCAlpha& Field() { return field_; }

    void TypeText(const QString& text);
    // A character of the palette, by its number there.
    void TypeCharacter(unsigned id);
    void Paste();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    int OnCmdMsg(int id, int code, zorby::TreeItem item) override;
    bool IsOwnKey(const QKeyEvent& key) const;
    void Align(const QString& text);
    void EditAsUnicode();
    void UndoInUnicode();

    MarcEditPort port_{*this};
    zorby::CEditMARCAlpha field_{port_};
    QString given_;
    bool isCoded_ = true;
    bool wasCoded_ = false;  // before a character that the code lacks was typed
    bool isAltAlone_ = false;
};

}  // namespace quillory
