#include <quillory/desktop/RepairDialog.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/WindowSize.h>
#include <quillory/reports/RepairWords.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace quillory {
namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 420;
enum Column : int { kWhere, kChange, kClass, kColumns };

}  // namespace

RepairDialog::RepairDialog(const std::vector<Repair>& repairs, const CodeLists& lists,
                           QWidget* parent)
    : QDialog(parent), list_(new QTreeWidget(this)) {
    setWindowTitle(tr("Repair coded fields"));
    ResizeToScreen(*this, {kWidth, kHeight});
    list_->setAccessibleName(tr("Repairs"));
    list_->setHeaderLabels({tr("Element"), tr("Repair"), tr("Kind")});
    list_->setRootIsDecorated(false);
    list_->setWordWrap(true);
    const RepairWords words(lists);
    for (const Repair& repair : repairs) {
        const bool isLeft = repair.kind == RepairKind::Left;
        auto* item = new QTreeWidgetItem(
            list_, {ToQt(ElementTextOf(repair)), ToQt(words.ChangeOf(repair)),
                    isLeft ? tr("left as it is") : ToQt(NameOf(repair.repairClass))});
        item->setToolTip(
            kClass, ToQt(RepairClasses().at(static_cast<std::size_t>(repair.repairClass)).text));
        if (isLeft) {
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        } else {
            item->setCheckState(kWhere, Qt::Checked);
        }
    }
    list_->header()->setSectionResizeMode(kWhere, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(kChange, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(kClass, QHeaderView::ResizeToContents);
    list_->header()->setStretchLastSection(false);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* repair = buttons->button(QDialogButtonBox::Ok);
    repair->setText(tr("Repair"));
    repair->setEnabled(std::ranges::any_of(
        repairs, [](const Repair& each) { return each.kind != RepairKind::Left; }));
    auto* advice = new QLabel(
        tr("Ticked repairs are made, and can be undone. What is left needs a person."), this);
    advice->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(advice);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

std::vector<bool> RepairDialog::Chosen() const {
    std::vector<bool> chosen;
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = list_->topLevelItem(row);
        chosen.push_back(item->data(kWhere, Qt::CheckStateRole).toInt() == Qt::Checked);
    }
    return chosen;
}

}  // namespace quillory
