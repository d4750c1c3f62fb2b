#include <quillory/desktop/QtPorts.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeView.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr int kNumberRole = Qt::UserRole;
constexpr int kBoxRole = Qt::UserRole + 1;

zorby::UnicodeView ViewOf(const std::string& text) {
    return {text, zorby::kDisplaySIL};
}

}  // namespace

void QtText::Select(int first, int last) {
    if (first == -1 && last == -1) return widget_.deselect();
    const zorby::UnicodeView view = ViewOf(GetText());
    const auto unit = [&view](int byte) {
        return static_cast<int>(view.UnitAt(static_cast<std::size_t>(byte)));
    };
    widget_.setSelection(unit(first), unit(last) - unit(first));
}

void QtText::GetSelection(int& first, int& last) const {
    const zorby::UnicodeView view = ViewOf(GetText());
    const int caret = widget_.cursorPosition();
    const bool isAny = widget_.hasSelectedText();
    const auto byte = [&view](int unit) {
        return static_cast<int>(view.ByteAt(static_cast<std::size_t>(unit)));
    };
    first = byte(isAny ? widget_.selectionStart() : caret);
    last = byte(isAny ? widget_.selectionEnd() : caret);
}

void QtList::Insert(int index, std::string_view text, int data) {
    const QSignalBlocker quiet(widget_);
    auto* item = new QListWidgetItem(ShownText(text));
    item->setData(kNumberRole, data);
    widget_.insertItem(index, item);
}

void QtList::Remove(int index) {
    const QSignalBlocker quiet(widget_);
    delete widget_.takeItem(index);
}

std::string QtList::GetTextAt(int index) const {
    const QListWidgetItem* item = widget_.item(index);
    return item == nullptr ? std::string() : CodedTextOf(item->text());
}

int QtList::GetDataAt(int index) const {
    const QListWidgetItem* item = widget_.item(index);
    return item == nullptr ? 0 : item->data(kNumberRole).toInt();
}

void QtList::Select(int index) {
    const QSignalBlocker quiet(widget_);
    widget_.setCurrentRow(index);
}

zorby::TreeItem QtTree::NumberOf(const QTreeWidgetItem* item) {
    return item == nullptr ? zorby::kTreeRoot : item->data(0, kNumberRole).toInt();
}

void QtTree::Insert(zorby::TreeItem item, zorby::TreeItem parent, int index,
                    std::string_view text) {
    const QSignalBlocker quiet(widget_);
    auto* shown = new QTreeWidgetItem({ShownText(text)});
    shown->setData(0, kNumberRole, item);
    QTreeWidgetItem* above =
        parent == zorby::kTreeRoot ? widget_.invisibleRootItem() : items_.at(parent);
    above->insertChild(index, shown);
    items_[item] = shown;
}

void QtTree::SetBox(zorby::TreeItem item, zorby::TreeBox box) {
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Unchecked, Qt::Checked,
                                          Qt::PartiallyChecked};
    const QSignalBlocker quiet(widget_);
    QTreeWidgetItem& shown = *items_.at(item);
    shown.setData(0, kBoxRole, static_cast<int>(box));
    if (box == zorby::TreeBox::kNone) {
        shown.setData(0, Qt::CheckStateRole, {});
    } else {
        shown.setCheckState(0, kStates[static_cast<int>(box)]);
    }
}

void QtTree::SetExpandable(zorby::TreeItem item, bool expandable) {
    items_.at(item)->setChildIndicatorPolicy(expandable
                                                 ? QTreeWidgetItem::ShowIndicator
                                                 : QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void QtTree::Expand(zorby::TreeItem item, bool expand) {
    const QSignalBlocker quiet(widget_);
    items_.at(item)->setExpanded(expand);
}

void QtTree::ScrollTo(zorby::TreeItem item) {
    widget_.scrollToItem(items_.at(item));
}

void QtTree::RemoveAll() {
    const QSignalBlocker quiet(widget_);
    widget_.clear();
    items_.clear();
}

void QtTree::Report(std::function<void(zorby::TreeItem)> clicked,
                    const std::function<void(zorby::TreeItem)>& opens) {
    QObject::connect(&widget_, &QTreeWidget::itemChanged, &widget_,
                     [this, clicked = std::move(clicked)](const QTreeWidgetItem* item) {
                         const zorby::TreeItem number = NumberOf(item);
                         SetBox(number,
                                static_cast<zorby::TreeBox>(item->data(0, kBoxRole).toInt()));
                         clicked(number);
                     });
    QObject::connect(&widget_, &QTreeWidget::itemExpanded, &widget_,
                     [opens](QTreeWidgetItem* item) { opens(NumberOf(item)); });
}

}  // namespace quillory
