#include <quillory/desktop/MarcView.h>
#include <quillory/desktop/WordOverlay.h>

#include <QPainter>
#include <algorithm>

namespace quillory {
namespace {

QColor ColorOf(zorby::ControlColor color) {
    constexpr unsigned kByte = 0xFF;
    return {static_cast<int>(color & kByte), static_cast<int>(color >> 8 & kByte),
            static_cast<int>(color >> 16 & kByte)};
}

class Window : public QWidget {
public:
    explicit Window(QWidget& parent) : QWidget(&parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFont(parent.font());
    }

    void Draw(std::span<const zorby::OverlayRun> runs) {
        runs_.assign(runs.begin(), runs.end());
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
        for (const zorby::OverlayRun& run : runs_) {
            const QString text = MarcText(ViewOfDisplay(run.text));
            const int width = fontMetrics().horizontalAdvance(text);
            const QRect place(run.x, 0, width, height());
            if (run.isHighlighted) {
                painter.fillRect(place, palette().color(QPalette::Highlight));
            }
            painter.setPen(ColorOf(run.color));
            painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text);
        }
    }

private:
    std::vector<zorby::OverlayRun> runs_;
};

}  // namespace

WordOverlay::WordOverlay(QWidget& parent, std::string_view text) : window_(new Window(parent)) {
    window_->setAccessibleName(MarcText(ViewOfDisplay(std::string(text))));
}

WordOverlay::~WordOverlay() {
    delete window_;
}

void WordOverlay::Place(const zorby::ControlBox& box) {
    const int height = std::max(box.height, window_->fontMetrics().height());
    window_->setGeometry(box.left, box.top, box.width, height);
}

void WordOverlay::Show(bool show) {
    window_->setVisible(show);
}

void WordOverlay::Draw(std::span<const zorby::OverlayRun> runs) {
    static_cast<Window*>(window_.data())->Draw(runs);
}

}  // namespace quillory
