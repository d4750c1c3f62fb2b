#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/exchange/Mrk.h>

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>

// Rows that a person takes with the mouse.
namespace quillory {
namespace {

constexpr int kGapWidth = 3;  // of the line that shows where a row goes, in pixels

// Where an item at `from` is once it was put before the one at `to`.
std::size_t PlaceAfterMove(std::size_t from, std::size_t to) {
    return to > from ? to - 1 : to;
}

std::vector<EditSession::Field> FieldsIn(const QDropEvent& event) {
    const QMimeData& data = *event.mimeData();
    if (!data.hasText() || data.hasUrls()) return {};
    const QString text = data.text();
    std::vector<EditSession::Field> fields;
    if (text.startsWith(u'=')) ReadFieldLines(text.toStdString(), fields);
    return fields;
}

}  // namespace

QString RecordTable::LinesOf(std::size_t field) const {
    const auto& [tag, content, given] = record_.Session()->Now().fields[field];
    std::string line;
    AppendMrkField({tag, content}, line);
    return ToQt(line);
}

// What is taken by its tag or its indicators is the field; by its text, its subfield.
void RecordTable::startDrag(Qt::DropActions /*supported*/) {
    Finish();
    const QModelIndex row = currentIndex();
    const auto field = model_->FieldOf(row);
    if (!field) return;
    taken_ = Taken{record_.Session()->Shared(), *field, {}};
    if (row.column() > RecordModel::Second) taken_->part = model_->PartOf(row);
    auto* drag = new QDrag(this);
    auto* lines = new QMimeData;
    lines->setText(LinesOf(*field));
    drag->setMimeData(lines);
    drag->setPixmap(PictureOf(taken_->part ? row.row() : FirstRowOf(*field),
                              taken_->part ? row.row() + 1 : FirstRowOf(*field + 1)));
    if (carry_) {
        carry_(*drag);
        drag->deleteLater();
    } else {
        drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
    }
    taken_.reset();
}

QPixmap RecordTable::PictureOf(int begin, int end) {
    const QRect rows(0, TopOf(begin), viewport()->width(), TopOf(end) - TopOf(begin));
    return viewport()->grab(rows.intersected(viewport()->rect()));
}

// Whether a row of this record is moved, and not copied here from elsewhere.
bool RecordTable::IsMove(const QDropEvent& event) const {
    return taken_ && event.dropAction() == Qt::MoveAction && record_.Session() != nullptr &&
           taken_->state == record_.Session()->Shared();
}

int RecordTable::FirstRowOf(std::size_t field) const {
    const QModelIndex first = model_->IndexOf(field, 0, RecordModel::Text);
    return first.isValid() ? first.row() : model_->rowCount();
}

int RecordTable::TopOf(int row) const {
    const int last = model_->rowCount() - 1;
    return row <= last ? rowViewportPosition(row) : rowViewportPosition(last) + rowHeight(last);
}

// Around its own subfields a subfield goes from row to row; elsewhere its field goes from field to
// field, whichever end of one is nearer. Nothing stands before the leader.
RecordTable::Gap RecordTable::GapAt(int y, bool isMove) const {
    const int over = rowAt(y);
    int row = over < 0 ? model_->rowCount() : over;
    if (over >= 0 && y > TopOf(over) + rowHeight(over) / 2) ++row;
    row = std::max(row, 1);
    if (isMove && taken_->part) {
        const int first = FirstRowOf(taken_->field);
        const bool isInside = row >= first && row <= FirstRowOf(taken_->field + 1);
        if (isInside) return {row, taken_->field, static_cast<std::size_t>(row - first)};
    }
    const auto field = model_->FieldOf(model_->index(row, 0));
    if (!field) return {row, record_.Session()->Now().fields.size(), {}};
    const int begin = FirstRowOf(*field);
    const int end = FirstRowOf(*field + 1);
    if (row == begin || y - TopOf(begin) <= TopOf(end) - y) return {begin, *field, {}};
    return {end, *field + 1, {}};
}

void RecordTable::ShowGap(std::optional<int> row) {
    gap_ = row;
    viewport()->update();
}

bool RecordTable::Takes(QDropEvent& event) const {
    if (!record_.CanChange()) return false;
    if (IsMove(event)) return true;
    if (FieldsIn(event).empty()) return false;
    event.setDropAction(Qt::CopyAction);
    return true;
}

void RecordTable::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(Takes(*event));
}

// The view of Qt scrolls near its edges; what it says of the drop is not asked.
void RecordTable::dragMoveEvent(QDragMoveEvent* event) {
    QTableView::dragMoveEvent(event);
    const bool isTaken = Takes(*event);
    if (isTaken) {
        ShowGap(GapAt(event->position().toPoint().y(), IsMove(*event)).row);
    } else {
        ShowGap(std::nullopt);
    }
    event->setAccepted(isTaken);
}

void RecordTable::dragLeaveEvent(QDragLeaveEvent* event) {
    QTableView::dragLeaveEvent(event);
    ShowGap(std::nullopt);
}

void RecordTable::dropEvent(QDropEvent* event) {
    ShowGap(std::nullopt);
    Finish();
    const bool isTaken = Takes(*event);
    event->setAccepted(true);
    QTableView::dropEvent(event);  // which ends the scrolling, and does nothing with what is taken
    event->setAccepted(isTaken);
    if (!isTaken) return;
    const bool isMove = IsMove(*event);
    const Gap gap = GapAt(event->position().toPoint().y(), isMove);
    if (!isMove) {
        InsertFields(gap.field, FieldsIn(*event));
    } else if (gap.part) {
        MovePart(taken_->field, *taken_->part, PlaceAfterMove(*taken_->part, *gap.part));
    } else {
        MoveFieldTo(taken_->field, PlaceAfterMove(taken_->field, gap.field));
    }
    setFocus();
}

void RecordTable::MovePart(std::size_t field, std::size_t part, std::size_t to) {
    if (part == to) return;
    FieldParts parts = PartsOf(record_.Session()->Now().fields[field].content);
    const std::string_view moved = parts.parts[part];
    parts.parts.erase(parts.parts.begin() + static_cast<std::ptrdiff_t>(part));
    parts.parts.insert(parts.parts.begin() + static_cast<std::ptrdiff_t>(to), moved);
    const std::string content = Joined(parts);
    record_.Do([&](EditSession& session) { session.SetContent(field, content); });
    setCurrentIndex(model_->IndexOf(field, to, RecordModel::Text));
}

void RecordTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!gap_) return;
    QPainter painter(viewport());
    const int top = std::max(TopOf(*gap_) - kGapWidth / 2 - 1, 0);
    painter.fillRect(0, top, viewport()->width(), kGapWidth, palette().color(QPalette::Highlight));
}

}  // namespace quillory
