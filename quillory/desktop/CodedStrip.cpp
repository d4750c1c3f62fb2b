#include <quillory/desktop/CodedStrip.h>
#include <quillory/desktop/Texts.h>
#include <quillory/places/Place.h>
#include <quillory/reports/CodedDocument.h>

#include <QFontDatabase>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace quillory {
namespace {

constexpr int kGroup = 10;  // bytes between two numbers of the ruler
constexpr int kMargin = 6;
constexpr int kUsual = 40;

}  // namespace

CodedStrip::CodedStrip(QWidget* parent) : QWidget(parent) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAccessibleName(tr("Bytes of the field"));
    setToolTip(tr("The bytes of the field, blanks as #. A click leads to the part."));
}

void CodedStrip::SetBytes(const std::string& bytes) {
    bytes_ = bytes;
    Describe();
    updateGeometry();
    update();
}

void CodedStrip::Mark(int first, int last) {
    first_ = first;
    last_ = last;
    Describe();
    update();
}

// For a screen reader.
void CodedStrip::Describe() {
    QString text = ToQt(CodeText(bytes_));
    if (first_ >= 0) text += tr("; in hand: %1").arg(ToQt(PositionsText(first_, last_)));
    setAccessibleDescription(text);
}

int CodedStrip::CellWidth() const {
    return fontMetrics().horizontalAdvance(u'0') + 2;
}

int CodedStrip::LineHeight() const {
    return 2 * fontMetrics().height() + 2;
}

int CodedStrip::Columns(int width) const {
    return std::max((width - 2 * kMargin) / CellWidth() / kGroup, 1) * kGroup;
}

int CodedStrip::heightForWidth(int width) const {
    const int columns = Columns(width);
    const int count = std::max(static_cast<int>(bytes_.size()), 1);
    return (count + columns - 1) / columns * LineHeight() + 2 * kMargin;
}

QSize CodedStrip::sizeHint() const {
    const int width = kUsual * CellWidth() + 2 * kMargin;
    return {width, heightForWidth(width)};
}

QRect CodedStrip::CellOf(int position) const {
    const int columns = Columns(width());
    return {kMargin + position % columns * CellWidth(),
            kMargin + position / columns * LineHeight() + fontMetrics().height(), CellWidth(),
            fontMetrics().height() + 2};
}

void CodedStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    for (int i = 0; i < static_cast<int>(bytes_.size()); ++i) {
        const QRect cell = CellOf(i);
        const bool isMarked = first_ <= i && i <= last_;
        if (i % kGroup == 0) {
            const QRect number = cell.translated(0, -fontMetrics().height());
            painter.setPen(palette().color(QPalette::PlaceholderText));
            painter.drawText(number.adjusted(0, 0, 2 * CellWidth(), 0), Qt::AlignLeft,
                             QString::number(i));
        }
        if (isMarked) painter.fillRect(cell, palette().color(QPalette::Highlight));
        painter.setPen(palette().color(isMarked ? QPalette::HighlightedText : QPalette::Text));
        const char byte = bytes_[static_cast<std::size_t>(i)];
        painter.drawText(cell, Qt::AlignCenter, ToQt(Printable(CodeText({&byte, 1}))));
    }
}

void CodedStrip::mousePressEvent(QMouseEvent* event) {
    for (int i = 0; i < static_cast<int>(bytes_.size()); ++i) {
        if (CellOf(i).contains(event->position().toPoint())) {
            Q_EMIT Clicked(i);
            return;
        }
    }
}

}  // namespace quillory
