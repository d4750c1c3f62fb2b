#include <quillory/desktop/RecordListView.h>
#include <quillory/reports/RecordListing.h>

#include <QHeaderView>
#include <algorithm>

namespace quillory {
namespace {

// In characters.
constexpr int kStateWidth = 5;
constexpr int kLeastTitleWidth = 15;
constexpr int kAuthorWidth = 14;
constexpr int kDateWidth = 6;
constexpr int kMaterialWidth = 11;
constexpr int kNumberWidth = 7;
constexpr int kLeastWidth = 4;  // of a column that shows at all

constexpr int Column(ListColumn column) {
    return static_cast<int>(column);
}

}  // namespace

RecordListView::RecordListView(QAbstractItemModel* model, QWidget* parent) : QTableView(parent) {
    setModel(model);
    setAccessibleName(tr("Records"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(true);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setMinimumSectionSize(0);
    header->setSectionResizeMode(Column(ListColumn::Title), QHeaderView::Stretch);
    setColumnWidth(Column(ListColumn::State), WidthOf(kStateWidth));
    setColumnWidth(Column(ListColumn::Date), WidthOf(kDateWidth));
    setColumnWidth(Column(ListColumn::Number), WidthOf(kNumberWidth));
    FitColumns();
}

void RecordListView::resizeEvent(QResizeEvent* event) {
    FitColumns();
    QTableView::resizeEvent(event);
}

int RecordListView::WidthOf(int chars) const {
    return chars * fontMetrics().averageCharWidth();
}

// In a narrow list the material goes first, then the author.
void RecordListView::FitColumns() {
    int room =
        viewport()->width() - WidthOf(kStateWidth + kLeastTitleWidth + kDateWidth + kNumberWidth);
    const auto fit = [&](ListColumn column, int chars) {
        const int given = room < WidthOf(kLeastWidth) ? 0 : std::min(room, WidthOf(chars));
        setColumnWidth(Column(column), given);
        room -= given;
    };
    fit(ListColumn::Author, kAuthorWidth);
    fit(ListColumn::Material, kMaterialWidth);
}

}  // namespace quillory
