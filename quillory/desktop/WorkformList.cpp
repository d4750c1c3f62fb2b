#include <quillory/desktop/Texts.h>
#include <quillory/desktop/TypedWords.h>
#include <quillory/desktop/WorkformList.h>
#include <quillory/faults/Errors.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <limits>
#include <utility>

namespace quillory {
namespace {

constexpr int kListChars = 24;  // at least
constexpr int kWideChars = 40;  // that show names and materials
enum Column : int { kName, kMaterial, kColumns };

int IdOf(const QTreeWidgetItem& item) {
    return item.data(kName, Qt::UserRole).toInt();
}

}  // namespace

WorkformList::WorkformList(MaterialOf materialOf, QWidget* parent)
    : QWidget(parent),
      materialOf_(std::move(materialOf)),
      search_(new QLineEdit(this)),
      list_(new QTreeWidget(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    search_->setPlaceholderText(tr("What is it? Book, DVD, map …"));
    search_->setAccessibleName(tr("Words of a workform"));
    search_->setClearButtonEnabled(true);
    list_->setAccessibleName(tr("Workforms"));
    list_->setHeaderLabels({tr("Workform"), tr("Material")});
    list_->setRootIsDecorated(false);
    list_->setMinimumWidth(fontMetrics().averageCharWidth() * kListChars);
    list_->header()->setSectionResizeMode(kName, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(kMaterial, QHeaderView::ResizeToContents);
    list_->header()->setStretchLastSection(false);
    layout->addWidget(search_);
    layout->addWidget(list_);
    search_->installEventFilter(this);
    setFocusProxy(search_);
    connect(search_, &QLineEdit::textChanged, this, &WorkformList::ShowMatches);
    connect(list_, &QTreeWidget::currentItemChanged, this, &WorkformList::Changed);
}

void WorkformList::Fill(const WorkformCatalog& workforms) {
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        AddGroup(tr("Your own"), workforms.Users());
        AddGroup(tr("Standard"), workforms.Standard());
        list_->expandAll();
    }
    ShowMatches(search_->text());
}

void WorkformList::AddGroup(const QString& title, const std::vector<WorkformEntry>& entries) {
    if (entries.empty()) return;
    auto* group = new QTreeWidgetItem(list_, {title});
    group->setFlags(Qt::ItemIsEnabled);
    group->setFirstColumnSpanned(true);
    for (const WorkformEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(group, {ToQt(entry.text)});
        item->setData(kName, Qt::UserRole, entry.id);
        try {
            item->setText(kMaterial, ToQt(materialOf_(entry.id)));
        } catch (const FaultError& error) {
            item->setFlags(Qt::NoItemFlags);
            item->setToolTip(kName, ToQt(error.what()));
        }
    }
}

// The workform whose name begins with what is typed, or has it first, is the one in hand.
void WorkformList::ShowMatches(const QString& typed) {
    QTreeWidgetItem* best = nullptr;
    qsizetype bestPlace = 0;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = list_->topLevelItem(i);
        for (int row = 0; row < group->childCount(); ++row) {
            QTreeWidgetItem* item = group->child(row);
            const bool fits = HasWords(item->text(kName) + u' ' + item->text(kMaterial), typed);
            item->setHidden(!fits);
            if (!fits || !item->flags().testFlag(Qt::ItemIsEnabled)) continue;
            const qsizetype at = item->text(kName).indexOf(typed, 0, Qt::CaseInsensitive);
            const qsizetype place = at < 0 ? std::numeric_limits<qsizetype>::max() : at;
            if (best != nullptr && place >= bestPlace) continue;
            best = item;
            bestPlace = place;
        }
    }
    list_->setCurrentItem(best);
}

int WorkformList::Chosen() const {
    const QTreeWidgetItem* item = list_->currentItem();
    return item == nullptr ? 0 : IdOf(*item);
}

void WorkformList::Choose(int id) {
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = list_->topLevelItem(i);
        for (int row = 0; row < group->childCount(); ++row) {
            if (IdOf(*group->child(row)) == id) list_->setCurrentItem(group->child(row));
        }
    }
}

void WorkformList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    list_->setColumnHidden(kMaterial, width() < kWideChars * fontMetrics().averageCharWidth());
}

// The arrow keys move in the list while a person types.
bool WorkformList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            QCoreApplication::sendEvent(list_, event);
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Q_EMIT Entered();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace quillory
