#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/Texts.h>

#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace quillory {
namespace {

constexpr int kPause = 400;  // milliseconds after the last key

}  // namespace

LinesEditor::LinesEditor(OpenRecord& record, QWidget* parent)
    : QWidget(parent),
      record_(record),
      box_(new QPlainTextEdit(this)),
      fault_(new QLabel(this)),
      pause_(new QTimer(this)) {
    box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    box_->setAccessibleName(tr("Record as text"));
    box_->setTabChangesFocus(true);
    box_->installEventFilter(this);
    fault_->setWordWrap(true);
    fault_->setMargin(4);
    fault_->hide();
    pause_->setSingleShot(true);
    pause_->setInterval(kPause);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box_);
    layout->addWidget(fault_);
    connect(box_, &QPlainTextEdit::textChanged, this, [this] {
        isTyped_ = TextIn(*box_) != known_;
        pause_->start();
        Q_EMIT Typed();
    });
    connect(pause_, &QTimer::timeout, this, &LinesEditor::Finish);
    connect(&record, &OpenRecord::Replaced, this, &LinesEditor::ShowRecord);
    connect(&record, &OpenRecord::Changed, this, [this] {
        if (!isTaking_) ShowRecord();
    });
}

// A view that stays active, as text that can't be read makes it, keeps what is typed.
void LinesEditor::SetActive(bool isActive) {
    if (isActive == isActive_) return;
    isActive_ = isActive;
    if (isActive) ShowRecord();
}

void LinesEditor::ShowRecord() {
    pause_->stop();
    isTyped_ = false;
    fault_->hide();
    const EditSession* session = record_.Session();
    box_->setEnabled(session != nullptr);
    box_->setTextInteractionFlags(record_.CanChange()
                                      ? Qt::TextEditorInteraction
                                      : Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (!isActive_) return;
    known_ = session == nullptr ? QString() : ToQt(session->Lines());
    const QSignalBlocker quiet(box_);
    const int caret = box_->textCursor().position();
    box_->setPlainText(known_);
    known_ = TextIn(*box_);
    QTextCursor cursor = box_->textCursor();
    cursor.setPosition(static_cast<int>(qMin<qsizetype>(caret, known_.size())));
    box_->setTextCursor(cursor);
}

bool LinesEditor::Finish() {
    pause_->stop();
    if (!isTyped_) fault_->hide();
    if (!isTyped_ || record_.Session() == nullptr) return true;
    std::optional<ItemFault> fault;
    isTaking_ = true;
    record_.Do(
        [&](EditSession& session) { fault = session.SetLines(TextIn(*box_).toStdString()); });
    isTaking_ = false;
    isTyped_ = fault.has_value();
    if (!fault) {
        fault_->hide();
        known_ = TextIn(*box_);
        box_->document()->clearUndoRedoStacks();
        return true;
    }
    ShowFault(*fault ? tr("Line %1: %2")
                           .arg(fault->lineColumn ? fault->lineColumn->line : 1)
                           .arg(ToQt(FaultText(*fault)))
                     : tr("The text has to be one record, from its line =LDR on."));
    return false;
}

void LinesEditor::TellTyped() {
    if (!isTyped_ || !isActive_) return;
    record_.Do([&](EditSession& session) { session.SetLines(TextIn(*box_).toStdString()); });
}

bool LinesEditor::CanBringBack() const {
    return isActive_ && box_->document()->isRedoAvailable();
}

void LinesEditor::TakeBack() {
    if (!box_->document()->isUndoAvailable()) return ShowRecord();
    box_->undo();
}

void LinesEditor::BringBack() {
    box_->redo();
}

// The box has only the steps that the record does not know of: the keys are those of the window.
bool LinesEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void LinesEditor::ShowFault(const QString& text) {
    QPalette palette = fault_->palette();
    palette.setColor(QPalette::WindowText,
                     ColorOf(Severity::Error, palette.color(QPalette::Window)));
    fault_->setPalette(palette);
    fault_->setText(SignOf(Severity::Error) + u' ' + text);
    fault_->show();
}

}  // namespace quillory
