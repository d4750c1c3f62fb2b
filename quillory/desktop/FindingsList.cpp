#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/Texts.h>

#include <QHeaderView>

namespace quillory {
namespace {

enum Column : int { kSign, kPlace, kText };
constexpr int kLeastLines = 3;  // with the headings

}  // namespace

FindingsList::FindingsList(QWidget* parent) : QTreeWidget(parent) {
    setAccessibleName(tr("Findings"));
    setHeaderLabels({QString(), tr("Place"), tr("Finding")});
    setRootIsDecorated(false);
    setWordWrap(true);
    setUniformRowHeights(false);
    header()->setSectionResizeMode(kSign, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(kPlace, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(kText, QHeaderView::Fixed);
    header()->setMinimumSectionSize(0);
    const auto choose = [this](QTreeWidgetItem* item) {
        const int row = indexOfTopLevelItem(item);
        if (row < 0) return;
        const Place place = places_[static_cast<std::size_t>(row)];  // the list may be made anew
        Q_EMIT Chosen(place);
    };
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumHeight(kLeastLines * fontMetrics().lineSpacing());
    connect(header(), &QHeaderView::sectionResized, this, [this](int column) {
        if (column != kText) FitText();
    });
    connect(this, &QTreeWidget::itemClicked, this, choose);
    connect(this, &QTreeWidget::itemActivated, this, choose);
}

void FindingsList::Show(const std::vector<Remark>& remarks, const std::optional<Fault>& obstacle) {
    clear();
    places_.clear();
    if (obstacle) {
        Add(Severity::Error, obstacle->place, ToQt(FaultReason(*obstacle)),
            tr("As it is, the record can't be saved in this form."));
    }
    for (const Remark& remark : remarks) {
        Add(remark.severity, remark.place, ToQt(RemarkText(remark)), ToQt(remark.rule->why));
    }
    FitText();
}

void FindingsList::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    FitText();
}

// The text has what the other columns and the scroll bar leave.
void FindingsList::FitText() {
    const int others = columnWidth(kSign) + columnWidth(kPlace);
    setColumnWidth(kText, qMax(0, viewport()->width() - others));
    FitRows();
}

void FindingsList::FitRows() {
    constexpr int kMargin = 4;
    const QRect column(0, 0, columnWidth(kText) - 2 * kMargin, 0);
    for (int row = 0; row < topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = topLevelItem(row);
        const QRect text = fontMetrics().boundingRect(column, Qt::TextWordWrap, item->text(kText));
        item->setSizeHint(kText, QSize(0, text.height() + kMargin));
    }
}

void FindingsList::Add(Severity severity, const Place& place, const QString& text,
                       const QString& why) {
    const QString where = ToQt(PlaceText(place));
    auto* item = new QTreeWidgetItem(this, {SignOf(severity), where, text});
    item->setForeground(kSign, ColorOf(severity, palette().color(QPalette::Base)));
    item->setData(kText, Qt::AccessibleTextRole,
                  WordOf(severity) + QStringLiteral(", ") + where + QStringLiteral(": ") + text);
    for (int column = kSign; column <= kText; ++column) {
        item->setToolTip(column, why);
        item->setTextAlignment(column, Qt::AlignTop);
    }
    places_.push_back(place);
}

}  // namespace quillory
