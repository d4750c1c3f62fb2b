#pragma once

#include <quillory/desktop/Texts.h>
#include <quillory/text/QmText.h>
#include <zorby/charset/UnicodeToQm.h>
#include <zorby/platform/ControlPort.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <functional>
#include <map>
#include <string>

namespace quillory {

// Ports over the widgets of Qt. The library's texts are in its one-byte code.

inline QString ShownText(std::string_view text) {
    return ToQt(QmToUtf8(text));
}

inline std::string CodedTextOf(const QString& text) {
    return zorby::UnicodeToQm(text.toStdU16String()).text;
}

// What all controls have in common.
template <class Port, class Widget>
class QtControlOf : public Port {
public:
    explicit QtControlOf(Widget& widget) : widget_(widget) {}

    void Show(bool show) override { widget_.setVisible(show); }
    void Enable(bool enable) override { widget_.setEnabled(enable); }
    void SetFocus() override { widget_.setFocus(); }
    void SetText(std::string_view /*text*/) override {}
    std::string GetText() const override { return {}; }
    void Check(bool /*check*/) override {}
    bool IsChecked() const override { return false; }

protected:
    Widget& widget_;
};

class QtLabel : public QtControlOf<zorby::ControlPort, QLabel> {
public:
    using QtControlOf::QtControlOf;
    void SetText(std::string_view text) override { widget_.setText(ShownText(text)); }
    std::string GetText() const override { return CodedTextOf(widget_.text()); }
};

// A button, a radio button or a check box.
class QtButton : public QtControlOf<zorby::ControlPort, QAbstractButton> {
public:
    using QtControlOf::QtControlOf;
    void SetText(std::string_view text) override { widget_.setText(ShownText(text)); }
    std::string GetText() const override { return CodedTextOf(widget_.text()); }
    void Check(bool check) override {
        const QSignalBlocker quiet(widget_);
        widget_.setChecked(check);
    }
    bool IsChecked() const override { return widget_.isChecked(); }
};

class QtText : public QtControlOf<zorby::TextPort, QLineEdit> {
public:
    using QtControlOf::QtControlOf;
    void SetText(std::string_view text) override { widget_.setText(ShownText(text)); }
    std::string GetText() const override { return CodedTextOf(widget_.text()); }
    void Select(int first, int last) override;
    void GetSelection(int& first, int& last) const override;
};

class QtList : public QtControlOf<zorby::ListPort, QListWidget> {
public:
    using QtControlOf::QtControlOf;
    void Insert(int index, std::string_view text, int data) override;
    void Remove(int index) override;
    int GetCount() const override { return widget_.count(); }
    std::string GetTextAt(int index) const override;
    int GetDataAt(int index) const override;
    void Select(int index) override;
    int GetSelected() const override { return widget_.currentRow(); }
};

// The state of a box is the library's: a click on it is reported, and changes nothing.
class QtTree : public QtControlOf<zorby::TreePort, QTreeWidget> {
public:
    using QtControlOf::QtControlOf;
    void Insert(zorby::TreeItem item, zorby::TreeItem parent, int index,
                std::string_view text) override;
    void SetBox(zorby::TreeItem item, zorby::TreeBox box) override;
    void SetExpandable(zorby::TreeItem item, bool expandable) override;
    void Expand(zorby::TreeItem item, bool expand) override;
    void ScrollTo(zorby::TreeItem item) override;
    void RemoveAll() override;

    // Calls back with each item whose box is clicked, and with each that is about to open.
    void Report(std::function<void(zorby::TreeItem)> clicked,
                const std::function<void(zorby::TreeItem)>& opens);
    // The library's number of an item; kTreeRoot for none.
    static zorby::TreeItem NumberOf(const QTreeWidgetItem* item);

private:
    std::map<zorby::TreeItem, QTreeWidgetItem*> items_;
};

}  // namespace quillory
