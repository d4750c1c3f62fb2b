#include <quillory/desktop/CharacterPalette.h>
#include <quillory/desktop/MarcView.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/editing/PaletteTable.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace quillory {
namespace {

constexpr int kLeastRows = 3;  // that are seen in a small window

// A diacritic is shown on a circle that stands for its letter.
QString Glyph(unsigned id) {
    const QString text = CharacterText(id);
    const bool isMark = text.size() == 1 && text.front().isMark();
    return isMark ? QStringLiteral("◌") + text : text;
}

QTableWidgetItem* CellOf(unsigned id) {
    const QString name = QString::fromLatin1(zorby::CharacterLongName(id));
    auto* cell = new QTableWidgetItem(Glyph(id));
    cell->setData(Qt::UserRole, id);
    cell->setToolTip(name);
    cell->setData(Qt::AccessibleTextRole, name);
    cell->setTextAlignment(Qt::AlignCenter);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return cell;
}

// All rows are seen, unless they would take more than half of the window.
void FitHeight(QTableWidget& grid) {
    const auto heightOf = [&grid](int rows) {
        return rows * grid.rowHeight(0) + 2 * grid.frameWidth();
    };
    const bool isRoomy = 2 * heightOf(zorby::kPaletteRows) <= grid.window()->height();
    grid.setMinimumHeight(heightOf(isRoomy ? zorby::kPaletteRows : kLeastRows));
}

}  // namespace

CharacterPalette::CharacterPalette(QWidget* parent)
    : QWidget(parent), grid_(new QTableWidget(zorby::kPaletteRows, zorby::kPaletteColumns, this)) {
    auto* heading = new QLabel(tr("Special characters"), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setMargin(4);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(heading);
    layout->addWidget(grid_, 1);
    Fill();
    grid_->setAccessibleName(tr("Special characters"));
    grid_->setFocusPolicy(Qt::TabFocus);
    grid_->viewport()->setFocusPolicy(Qt::NoFocus);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setTabKeyNavigation(false);
    grid_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid_->setTextElideMode(Qt::ElideNone);
    grid_->setMinimumWidth(zorby::kPaletteColumns * fontMetrics().horizontalAdvance(u'W'));
    grid_->horizontalHeader()->hide();
    grid_->verticalHeader()->hide();
    grid_->horizontalHeader()->setMinimumSectionSize(0);
    grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    const int rowHeight = fontMetrics().height() + 2;
    grid_->verticalHeader()->setMinimumSectionSize(rowHeight);
    grid_->verticalHeader()->setDefaultSectionSize(rowHeight);
    grid_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    grid_->setCurrentCell(0, 0);
    grid_->installEventFilter(this);
    connect(grid_, &QTableWidget::cellClicked, this, &CharacterPalette::Choose);
}

void CharacterPalette::Fill() {
    for (int row = 0; row < zorby::kPaletteRows; ++row) {
        for (int column = 0; column < zorby::kPaletteColumns; ++column) {
            const unsigned id = zorby::PaletteId(zorby::PaletteCellAt(column, row));
            auto* cell = id == 0 ? new QTableWidgetItem : CellOf(id);
            if (id == 0) cell->setFlags(Qt::NoItemFlags);
            grid_->setItem(row, column, cell);
        }
    }
}

void CharacterPalette::Toggle() {
    const bool isInHand = isVisible() && grid_->hasFocus();
    FitHeight(*grid_);
    setVisible(!isInHand);
    if (isInHand) {
        Q_EMIT Left();
    } else {
        grid_->setFocus(Qt::ShortcutFocusReason);
    }
}

void CharacterPalette::Choose(int row, int column) {
    const QTableWidgetItem* cell = grid_->item(row, column);
    if (cell == nullptr || !cell->flags().testFlag(Qt::ItemIsEnabled)) return;
    Q_EMIT Chosen(cell->data(Qt::UserRole).toUInt());
}

bool CharacterPalette::eventFilter(QObject* watched, QEvent* event) {
    if (watched != grid_ || event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        Choose(grid_->currentRow(), grid_->currentColumn());
    } else if (key == Qt::Key_Escape) {
        Q_EMIT Left();
    } else {
        return false;
    }
    return true;
}

}  // namespace quillory
