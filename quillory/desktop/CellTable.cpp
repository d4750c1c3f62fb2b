#include <quillory/desktop/CellTable.h>

#include <QKeyEvent>

namespace quillory {
namespace {

bool IsEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

// What is taken may lead to another question what is typed.
void CellBoxes::Finish() {
    if (box_ == nullptr || isTaking_) return;
    isTaking_ = true;
    QWidget* box = box_;
    Q_EMIT commitData(box);
    if (box == box_) Q_EMIT closeEditor(box, NoHint);
    isTaking_ = false;
}

QWidget* CellBoxes::MakeBox(QWidget* parent, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    return QStyledItemDelegate::createEditor(parent, option, index);
}

QWidget* CellBoxes::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    box_ = MakeBox(parent, option, index);
    return box_;
}

// A view does so, too, where it shows something else.
void CellBoxes::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    if (editor == box_) box_ = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

// Enter takes what is typed at once: the delegate of Qt waits, and then asks for a box that has
// been closed meanwhile. There are no line ends in a cell.
bool CellBoxes::eventFilter(QObject* editor, QEvent* event) {
    if (editor != box_ || !IsEnter(*event)) return QStyledItemDelegate::eventFilter(editor, event);
    Finish();
    return true;
}

CellTable::CellTable(CellBoxes* boxes, QWidget* parent) : QTableView(parent), boxes_(boxes) {
    boxes->setParent(this);
    setItemDelegate(boxes);
}

void CellTable::Open(const QModelIndex& index) {
    if (index.flags().testFlag(Qt::ItemIsEditable)) edit(index, AllEditTriggers, nullptr);
}

void CellTable::commitData(QWidget* editor) {
    if (editor == Box()) QTableView::commitData(editor);
}

void CellTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (editor == Box()) QTableView::closeEditor(editor, hint);
}

}  // namespace quillory
