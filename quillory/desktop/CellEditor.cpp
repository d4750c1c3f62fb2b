#include <quillory/desktop/CellEditor.h>
#include <quillory/desktop/IndicatorEdit.h>
#include <quillory/desktop/MarcEdit.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/Texts.h>
#include <quillory/faults/Errors.h>
#include <quillory/holdings/NextBarCode.h>
#include <quillory/jobs/Settings.h>
#include <quillory/places/Tag.h>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <algorithm>

namespace quillory {
namespace {

constexpr QChar kDelimiterSign = u'‡';
constexpr int kShownLines = 6;  // of a long text that is edited

// Where a box stands that is larger than its cell.
QRect BelowOrAbove(const QRect& cell, const QSize& size, const QRect& room) {
    QRect box(cell.bottomLeft(), size.boundedTo(room.size()));
    if (box.bottom() > room.bottom()) box.moveBottom(cell.top() - 1);
    box.moveTop(std::max(box.top(), room.top()));
    box.moveRight(std::min(box.right(), room.right()));
    return box;
}

}  // namespace

bool CellEditor::IsOfCompanion(const QWidget* widget) const {
    return companion_ && widget != nullptr &&
           (widget == companion_ || companion_->isAncestorOf(widget));
}

// From there the focus goes back to the text, or the text is finished.
void CellEditor::SetCompanion(const QWidget* companion) {
    companion_ = companion;
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget* old, const QWidget* now) {
                const bool isElsewhere = now != nullptr && now != Box() && !IsOfCompanion(now);
                if (IsOfCompanion(old) && isElsewhere) Finish();
            });
}

bool CellEditor::TypeDelimiter() {
    if (auto* marc = qobject_cast<MarcEdit*>(Box())) {
        marc->TypeText(kDelimiterSign);
    } else if (auto* text = qobject_cast<QPlainTextEdit*>(Box())) {
        text->insertPlainText(kDelimiterSign);
    } else {
        return false;
    }
    return true;
}

bool CellEditor::TypeCharacter(unsigned id) {
    auto* text = qobject_cast<MarcEdit*>(Box());
    if (text == nullptr) return false;
    text->setFocus();
    text->TypeCharacter(id);
    return true;
}

// It takes the place of what is selected. If the settings can't give one, the same stays there.
std::string CellEditor::NextBarCode(const zorby::CEditMARCAlpha& field) const {
    try {
        std::string barCode = TakeNextBarCode();
        if (!barCode.empty()) return barCode;
    } catch (const FaultError& error) {
        Q_EMIT Said(ToQt(error.what()));
    }
    std::string text;
    field.GetWindowTextA(text);
    const auto [start, end] = field.GetSel();
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

// A box for a text, which grows with it.
QPlainTextEdit* CellEditor::MakeTextBox(QWidget* parent, const QModelIndex& index) const {
    const auto* record = qobject_cast<const RecordModel*>(index.model());
    QPlainTextEdit* text = nullptr;
    if (record != nullptr && record->PartOf(index)) {
        auto* marc = new MarcEdit(parent);
        if (IsPlaceOfBarCode(record->PlaceOf(index)) && HasNextBarCode()) {
            marc->Field().SetNextNumberCallback(
                [this, marc] { return NextBarCode(marc->Field()); });
        }
        text = marc;
    } else {
        text = new QPlainTextEdit(parent);
    }
    text->setTabChangesFocus(true);
    text->setFrameShape(QFrame::Box);
    text->document()->setDocumentMargin(2);
    text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QVariant font = index.data(Qt::FontRole);
    text->setFont(font.isValid() ? font.value<QFont>() : parent->font());
    return text;
}

// Null for a cell that is no indicator, or one of a field with a tag that is no number.
QWidget* CellEditor::MakeIndicatorBox(QWidget* parent, const QModelIndex& index) const {
    const auto* record = qobject_cast<const RecordModel*>(index.model());
    const Place place = record == nullptr ? Place::OfRecord() : record->PlaceOf(index);
    if (place.indicator == 0 || place.Number() == kNoTag) return nullptr;
    auto* box =
        new IndicatorEdit(place.Number(), place.indicator, record->TextOf(index, '2'), parent);
    connect(box, &IndicatorEdit::Chosen, this, [this] { const_cast<CellEditor*>(this)->Finish(); });
    return box;
}

QWidget* CellEditor::MakeBox(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                             const QModelIndex& index) const {
    QWidget* box = nullptr;
    if (index.column() == RecordModel::Text) {
        box = MakeTextBox(parent, index);
    } else if (auto* indicator = MakeIndicatorBox(parent, index)) {
        box = indicator;
    } else {
        auto* line = new QLineEdit(parent);
        line->setMaxLength(index.column() == RecordModel::Tag ? static_cast<int>(kTagSize) : 1);
        line->setFrame(false);
        box = line;
    }
    box->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
    return box;
}

// A box is filled once: what changes in the record while a person types, such as the signs of
// findings, takes nothing back.
void CellEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    constexpr auto kIsFilled = "isFilled";
    if (editor->property(kIsFilled).toBool()) return;
    editor->setProperty(kIsFilled, true);
    const QString value = index.data(Qt::EditRole).toString();
    if (auto* marc = qobject_cast<MarcEdit*>(editor)) {
        marc->SetText(value);
    } else if (auto* text = qobject_cast<QPlainTextEdit*>(editor)) {
        text->setPlainText(value);
        text->moveCursor(QTextCursor::End);
    } else if (auto* indicator = qobject_cast<IndicatorEdit*>(editor)) {
        indicator->SetValue(value);
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        line->setText(value);
        line->selectAll();
    }
}

void CellEditor::setModelData(QWidget* editor, QAbstractItemModel* model,
                              const QModelIndex& index) const {
    if (auto* marc = qobject_cast<MarcEdit*>(editor)) {
        model->setData(index, marc->Text(), Qt::EditRole);
    } else if (auto* text = qobject_cast<QPlainTextEdit*>(editor)) {
        model->setData(index, TextIn(*text), Qt::EditRole);
    } else if (auto* indicator = qobject_cast<IndicatorEdit*>(editor)) {
        if (!indicator->Value().isEmpty()) model->setData(index, indicator->Value(), Qt::EditRole);
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        model->setData(index, line->text(), Qt::EditRole);
    }
}

void CellEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                      const QModelIndex& /*index*/) const {
    QRect box = option.rect;
    if (qobject_cast<IndicatorEdit*>(editor) != nullptr) {
        box = BelowOrAbove(box, editor->sizeHint(), editor->parentWidget()->rect());
    } else if (qobject_cast<QPlainTextEdit*>(editor) != nullptr) {
        const int line = editor->fontMetrics().lineSpacing();
        const int room = std::max(box.height(), editor->parentWidget()->height() - box.top());
        const int height = std::clamp(box.height() + line, 2 * line, (kShownLines + 1) * line);
        box.setHeight(std::min(height, room));
    }
    editor->setGeometry(box);
}

// The companion may have the focus while a text is typed; a box that is closed loses it once more.
bool CellEditor::eventFilter(QObject* editor, QEvent* event) {
    const bool isLeft = event->type() == QEvent::FocusOut;
    if (isLeft && (editor != Box() || IsOfCompanion(QApplication::focusWidget()))) return false;
    return CellBoxes::eventFilter(editor, event);
}

// Text of a script that is written from the right begins there.
void CellEditor::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != RecordModel::Text || !option->text.isRightToLeft()) return;
    option->direction = Qt::RightToLeft;
    option->displayAlignment = Qt::AlignLeft | Qt::AlignTop;
}

}  // namespace quillory
