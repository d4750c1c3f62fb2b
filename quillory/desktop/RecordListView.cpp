#include <quillory/desktop/RecordListView.h>
#include <quillory/reports/RecordListing.h>

#include <QHeaderView>
#include <algorithm>

namespace quillory {
namespace {

// In characters.
constexpr int kStateWidth = 5;
constexpr int kLeastTitleWidth = 22;
constexpr int kAuthorWidth = 14;
constexpr int kDateWidth = 6;
constexpr int kMaterialWidth = 11;
constexpr int kNumberWidth = 7;
constexpr int kLeastWidth = 8;  // of an author or a material that shows at all

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
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
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
    FitColumns();
}

void RecordListView::resizeEvent(QResizeEvent* event) {
    FitColumns();
    QTableView::resizeEvent(event);
}

int RecordListView::WidthOf(int chars) const {
    return chars * fontMetrics().averageCharWidth();
}

// In a narrow list the material goes first, then the author, the number and the date.
void RecordListView::FitColumns() {
    int room = viewport()->width() - WidthOf(kStateWidth + kLeastTitleWidth);
    const auto fit = [&](ListColumn column, int least, int chars) {
        const int given = room < WidthOf(least) ? 0 : std::min(room, WidthOf(chars));
        setColumnWidth(Column(column), given);
        room -= given;
    };
    fit(ListColumn::Date, kDateWidth, kDateWidth);
    fit(ListColumn::Number, kNumberWidth, kNumberWidth);
    fit(ListColumn::Author, kLeastWidth, kAuthorWidth);
    fit(ListColumn::Material, kLeastWidth, kMaterialWidth);
}

}  // namespace quillory
