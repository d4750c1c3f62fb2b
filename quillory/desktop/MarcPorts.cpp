#include <quillory/desktop/MarcPorts.h>
#include <quillory/desktop/MarcView.h>
#include <quillory/desktop/Texts.h>
#include <zorby/charset/UnicodeToQm.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>

namespace quillory {
namespace {

// What a field has copied, byte for byte.
QString OwnFormat() {
    return QStringLiteral("application/x-zorby-text");
}

// Null where the clipboard is empty.
const QMimeData* Held() {
    return QGuiApplication::clipboard()->mimeData();
}

bool HasOwnText() {
    return Held() != nullptr && Held()->hasFormat(OwnFormat());
}

}  // namespace

QString OneLine(QString text) {
    static const QRegularExpression kBreak(
        QStringLiteral("[ \\t]*[\\t\\r\\n\\x{2028}\\x{2029}]\\s*"));
    while (text.endsWith(u'\n') || text.endsWith(u'\r')) text.chop(1);
    return text.replace(kBreak, QStringLiteral(" "));
}

QString QtClipboard::Text() {
    return OneLine(QGuiApplication::clipboard()->text());
}

bool QtClipboard::IsCodable() {
    return HasOwnText() || zorby::UnicodeToQm(Text().toStdU16String()).unplaced.empty();
}

bool QtClipboard::HasText() const {
    return HasOwnText() || !Text().isEmpty();
}

std::optional<std::string> QtClipboard::GetText() const {
    if (!HasText()) return std::nullopt;
    if (HasOwnText()) return Held()->data(OwnFormat()).toStdString();
    return zorby::UnicodeToQm(Text().toStdU16String()).text;
}

void QtClipboard::SetText(std::string_view text) {
    auto* data = new QMimeData;  // the clipboard's from now on
    data->setText(MarcText({text, zorby::kDisplaySIL}));
    data->setData(OwnFormat(), QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    QGuiApplication::clipboard()->setMimeData(data);
}

int QtMenus::PopUp(std::span<const zorby::MenuEntry> menu, zorby::ControlPoint at) {
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr) return 0;
    QMenu shown(widget);
    for (const zorby::MenuEntry& entry : menu) {
        QAction* action = shown.addAction(ToQt(entry.text));
        action->setData(entry.command);
        action->setEnabled(entry.isEnabled);
    }
    const QAction* chosen = shown.exec(widget->mapToGlobal(QPoint(at.x, at.y)));
    return chosen == nullptr ? 0 : chosen->data().toInt();
}

void QtSignals::Beep(int /*hertz*/, int /*milliseconds*/) {
    QApplication::beep();
}

void QtSignals::ShowWaitCursor(bool show) {
    if (show) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

// A screen that speaks Unicode shows each byte of the code, as a font does that is laid out so.
MarcPorts::MarcPorts() : displayType_(zorby::CSGetDisplayType()) {
    zorby::CSSetDisplayType(zorby::kDisplaySIL);
}

MarcPorts::~MarcPorts() {
    zorby::CSSetDisplayType(displayType_);
}

}  // namespace quillory
