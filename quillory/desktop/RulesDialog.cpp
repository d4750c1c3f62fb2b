#include <quillory/desktop/DeskRules.h>
#include <quillory/desktop/RulesDialog.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/TypedWords.h>
#include <quillory/desktop/WindowSize.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace quillory {
namespace {

constexpr int kWidth = 820;
constexpr int kHeight = 520;
constexpr int kLines = 4;
constexpr int kRoomOfFrame = 12;
enum Column : int { kName, kWeight, kTitle };
constexpr int kWords = Qt::UserRole;

QString WordsOf(const Rule& rule) {
    QStringList lines{ToQt(rule.why)};
    if (!rule.example.empty()) lines << RulesDialog::tr("Such as: %1").arg(ToQt(rule.example));
    if (!rule.source.empty()) lines << RulesDialog::tr("Source: %1").arg(ToQt(rule.source));
    return lines.join(u'\n').trimmed();
}

}  // namespace

RulesDialog::RulesDialog(const DeskRules& rules, QWidget* parent)
    : QDialog(parent),
      rules_(rules),
      search_(new QLineEdit(this)),
      list_(new QTreeWidget(this)),
      words_(new QPlainTextEdit(this)) {
    setWindowTitle(tr("Rules"));
    ResizeToScreen(*this, {kWidth, kHeight});
    auto* where = new QLabel(
        rules.File() ? tr("As %1 sets them.").arg(ToQt(*rules.File()))
                     : tr("A file quillory-check.toml beside the records, or in the folder of the "
                          "settings, sets other weights by these names."),
        this);
    where->setTextFormat(Qt::PlainText);
    where->setWordWrap(true);
    search_->setPlaceholderText(tr("Words of a rule"));
    search_->setAccessibleName(tr("Words of a rule"));
    search_->setClearButtonEnabled(true);
    list_->setAccessibleName(tr("Rules"));
    list_->setHeaderLabels({tr("Name"), tr("Weight"), tr("Rule")});
    list_->setRootIsDecorated(false);
    words_->setReadOnly(true);
    words_->setTabChangesFocus(true);
    words_->setAccessibleName(tr("The reason for the rule in hand"));
    words_->setFixedHeight(kLines * fontMetrics().lineSpacing() + kRoomOfFrame);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(where);
    layout->addWidget(search_);
    layout->addWidget(list_, 1);
    layout->addWidget(words_);
    layout->addWidget(buttons);
    connect(search_, &QLineEdit::textChanged, this, &RulesDialog::ShowMatches);
    connect(list_, &QTreeWidget::currentItemChanged, this, &RulesDialog::ShowWords);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Fill();
}

void RulesDialog::Fill() {
    for (const Rule& rule : Rules()) Add(rule);
    for (const Rule& rule : rules_.Own()) Add(rule);
    list_->header()->setSectionResizeMode(kName, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(kWeight, QHeaderView::ResizeToContents);
    list_->setCurrentItem(list_->topLevelItem(0));
}

void RulesDialog::Add(const Rule& rule) {
    const auto severity = rules_.Weights().Of(rule.id);
    auto* item = new QTreeWidgetItem(
        list_,
        {ToQt(rule.name), severity ? SignOf(*severity) + u' ' + WordOf(*severity) : tr("off"),
         ToQt(rule.title)});
    if (severity) {
        item->setForeground(kWeight, ColorOf(*severity, palette().color(QPalette::Base)));
    }
    item->setToolTip(kTitle, ToQt(rule.title));
    item->setData(kName, kWords, WordsOf(rule));
}

void RulesDialog::ShowMatches(const QString& typed) {
    QTreeWidgetItem* first = nullptr;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = list_->topLevelItem(i);
        const bool fits = HasWords(item->text(kName) + u' ' + item->text(kTitle), typed);
        item->setHidden(!fits);
        if (fits && first == nullptr) first = item;
    }
    list_->setCurrentItem(first);
}

void RulesDialog::ShowWords() {
    const QTreeWidgetItem* item = list_->currentItem();
    words_->setPlainText(item == nullptr ? QString() : item->data(kName, kWords).toString());
}

}  // namespace quillory
