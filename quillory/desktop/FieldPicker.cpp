#include <quillory/desktop/FieldPicker.h>
#include <quillory/desktop/FieldTree.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/TypedWords.h>
#include <quillory/desktop/WindowSize.h>
#include <quillory/places/Tag.h>
#include <quillory/reports/FieldDocument.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quillory {
namespace {

constexpr int kWidth = 420;
constexpr int kHeight = 420;

}  // namespace

FieldPicker::FieldPicker(QWidget* parent)
    : QDialog(parent),
      tabs_(new QTabWidget(this)),
      box_(new QLineEdit),
      list_(new QListWidget),
      tree_(new FieldTree) {
    setWindowTitle(tr("New field"));
    ResizeToScreen(*this, {kWidth, kHeight});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    add_ = buttons->button(QDialogButtonBox::Ok);
    add_->setText(tr("Add"));
    tabs_->addTab(MakeNames(), tr("By &Name"));
    tabs_->addTab(tree_, tr("By &Group"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons);
    connect(tabs_, &QTabWidget::currentChanged, this, &FieldPicker::UpdateButton);
    connect(tree_, &FieldTree::Changed, this, &FieldPicker::UpdateButton);
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* item) {
        if (item->childCount() == 0 && !Tag().empty()) accept();
    });
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    box_->setFocus();
}

QWidget* FieldPicker::MakeNames() {
    auto* page = new QWidget(tabs_);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(box_);
    layout->addWidget(list_);
    box_->setPlaceholderText(tr("Tag, or words of the name"));
    box_->setAccessibleName(tr("Tag, or words of the name"));
    box_->setClearButtonEnabled(true);
    list_->setAccessibleName(tr("Fields"));
    for (unsigned tag = 1; tag < kTags; ++tag) {
        const auto field = DescribeField(tag, zorby::EDO_NameOnly, false);
        if (!field) continue;
        auto* item = new QListWidgetItem(ToQt(field->tag + "  " + field->name), list_);
        item->setData(Qt::UserRole, ToQt(field->tag));
    }
    connect(box_, &QLineEdit::textChanged, this, &FieldPicker::ShowMatches);
    connect(list_, &QListWidget::currentRowChanged, this, &FieldPicker::UpdateButton);
    box_->installEventFilter(this);
    list_->setCurrentRow(0);
    return page;
}

void FieldPicker::UpdateButton() {
    add_->setEnabled(!Tag().empty());
}

void FieldPicker::ShowMatches(const QString& typed) {
    int first = -1;
    for (int row = 0; row < list_->count(); ++row) {
        QListWidgetItem* item = list_->item(row);
        const bool isNumber = !typed.isEmpty() && typed[0].isDigit();
        const bool fits = isNumber ? item->text().startsWith(typed) : HasWords(item->text(), typed);
        item->setHidden(!fits);
        if (fits && first < 0) first = row;
    }
    list_->setCurrentRow(first);
    if (first >= 0) list_->scrollToItem(list_->item(first));
    UpdateButton();
}

// A tag that the dictionary lacks can be typed in full.
std::string FieldPicker::Tag() const {
    if (tabs_->currentWidget() == tree_) return tree_->Tag();
    std::string typed = box_->text().trimmed().toStdString();
    if (TagNumber(typed) != kNoTag && TagNumber(typed) != 0) return typed;
    const QListWidgetItem* item = list_->currentItem();
    return item == nullptr ? std::string() : item->data(Qt::UserRole).toString().toStdString();
}

// The arrow keys move in the list while a person types.
bool FieldPicker::eventFilter(QObject* watched, QEvent* event) {
    if (watched == box_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
            key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(list_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quillory
