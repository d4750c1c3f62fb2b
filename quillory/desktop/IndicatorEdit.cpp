#include <quillory/desktop/IndicatorEdit.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <algorithm>
#include <utility>

namespace quillory {
namespace {

using Id = zorby::CIndicatorSelect::Id;

constexpr char kLibraryBlank = '_';
constexpr QChar kBlankSign = u'#';
constexpr int kWidth = 340;
constexpr int kShownValues = 11;

}  // namespace

IndicatorEdit::IndicatorEdit(unsigned tag, int which, std::string source, QWidget* parent)
    : QFrame(parent), tag_(tag), which_(which), source_(std::move(source)) {
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    SetValue(QString(kBlankSign));
    list_ = qobject_cast<QListWidget*>(controls_.Widget(Id::kCombo));
    auto* name = qobject_cast<QLabel*>(controls_.Widget(Id::kName));
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    list_->setAccessibleName(tr("Values: %1").arg(name->text()));
    controls_.Widget(Id::kUserValue)->setAccessibleName(tr("A value of your own"));
    list_->setWordWrap(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->installEventFilter(this);
    controls_.Widget(Id::kUserValue)->installEventFilter(this);
    setFocusProxy(list_);
    layout()->setContentsMargins(4, 4, 4, 4);
    layout()->setSpacing(2);
    setFixedWidth(kWidth);
    connect(list_, &QListWidget::itemClicked, this, [this] {
        if (!Value().isEmpty()) Q_EMIT Chosen();
    });
    FitList();
}

QSize IndicatorEdit::sizeHint() const {
    return {kWidth, layout()->totalHeightForWidth(kWidth)};
}

void IndicatorEdit::FitList() {
    const int rows = std::clamp(list_->count(), 1, kShownValues);
    list_->setFixedHeight(rows * list_->sizeHintForRow(0) + 2 * list_->frameWidth());
}

void IndicatorEdit::SetValue(const QString& value) {
    const bool isBlank = value.isEmpty() || value == kBlankSign || value == u' ';
    zorby::CIndicatorSelect::Settings settings;
    settings.templateType = zorby::EDO_CodeAndName;
    settings.templateCode = source_ == "sears" ? 1 : 0;
    settings.subfield2Text = &source_;
    select_.InitializeIndicatorSelect(controls_, tag_,
                                      isBlank ? kLibraryBlank : value[0].toLatin1(),
                                      which_ == 1 ? 1 : 0, settings);
}

QString IndicatorEdit::Value() const {
    const char code = select_.GetCode();
    if (code == '\0') return {};
    return code == kLibraryBlank ? QString(kBlankSign) : QString(QLatin1Char(code));
}

bool IndicatorEdit::TypeKey(const QString& typed) {
    if (typed.size() != 1 || !typed[0].isPrint() || typed[0].unicode() > u'\x7f') return false;
    SetValue(typed);
    return true;
}

// What the view does with the keys and the focus of its editors goes to the editor as a whole.
bool IndicatorEdit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        QCoreApplication::sendEvent(this, event);
    } else if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        switch (key->key()) {
            case Qt::Key_Tab:
            case Qt::Key_Backtab:
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Escape:
                QCoreApplication::sendEvent(this, event);
                return true;
            default:
                return watched == list_ && TypeKey(key->text());
        }
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace quillory
