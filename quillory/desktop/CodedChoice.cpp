#include <quillory/desktop/CodedChoice.h>
#include <quillory/desktop/Texts.h>
#include <quillory/reports/CodedDocument.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QStylePainter>
#include <algorithm>

namespace quillory {
namespace {

constexpr int kLongList = 40;
constexpr int kLeastChars = 8;
constexpr int kRows = 24;  // of the open list

bool IsOffered(const CodeMeaning& code) {
    return code.state != CodeState::Obsolete && code.state != CodeState::Unknown;
}

}  // namespace

QString ChoiceText(const CodeMeaning& code) {
    QString text = ToQt(CodeText(code.code)) + QStringLiteral("  ");
    if (code.state == CodeState::Unknown) {
        return text + CodedChoice::tr("not a code here");
    }
    text += ToQt(code.text);
    const bool isObsolete = code.state == CodeState::Obsolete;
    if (isObsolete) text += QStringLiteral(" (%1)").arg(ToQt(RemarkText(code)));
    return text;
}

CodedChoice::CodedChoice(const std::vector<CodeMeaning>& codes, int width, bool takesOthers,
                         QWidget* parent)
    : QComboBox(parent), width_(width), takesOthers_(takesOthers) {
    for (const CodeMeaning& code : codes) {
        const bool isWhole = static_cast<int>(code.code.size()) == width;
        if (isWhole && IsOffered(code)) AddCode(code);
    }
    listed_ = count();
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kLeastChars);
    setMaxVisibleItems(kRows);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::activated, this, &CodedChoice::Choose);
    if (listed_ <= kLongList && !takesOthers) return;
    setEditable(true);
    setInsertPolicy(NoInsert);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
    connect(lineEdit(), &QLineEdit::editingFinished, this, &CodedChoice::Finish);
}

void CodedChoice::AddCode(const CodeMeaning& code) {
    addItem(ChoiceText(code), QByteArray::fromStdString(code.code));
}

std::string CodedChoice::CodeAt(int index) const {
    return itemData(index).toByteArray().toStdString();
}

void CodedChoice::RemoveForeign() {
    while (count() > listed_) removeItem(listed_);
}

void CodedChoice::SetValue(const CodeMeaning& value) {
    const QSignalBlocker quiet(this);
    value_ = value.code;
    int index = findData(QByteArray::fromStdString(value_));
    if (index < 0 || index >= listed_) {
        RemoveForeign();
        if (static_cast<int>(value_.size()) < width_) {
            addItem(tr("missing: the field ends before"), QByteArray::fromStdString(value_));
        } else {
            AddCode(value);
        }
        index = listed_;
    } else {
        RemoveForeign();
    }
    setCurrentIndex(index);
    if (isEditable()) setEditText(itemText(index));
    setToolTip(itemText(index));
}

void CodedChoice::Choose(int index) {
    const std::string code = CodeAt(index);
    if (index < 0 || code == value_) return;
    Q_EMIT Chosen(code);
}

// By all of its text, its code, its meaning, or words that only one of them has.
int CodedChoice::FindTyped(const QString& typed) const {
    int found = -1;
    bool isOnly = true;
    for (int i = 0; i < listed_; ++i) {
        const QString text = itemText(i);
        const QString code = ToQt(CodeText(CodeAt(i)));
        const bool isThis =
            text.compare(typed, Qt::CaseInsensitive) == 0 ||
            code.compare(typed, Qt::CaseInsensitive) == 0 ||
            text.mid(code.size()).trimmed().compare(typed, Qt::CaseInsensitive) == 0;
        if (isThis) return i;
        if (!text.contains(typed, Qt::CaseInsensitive)) continue;
        isOnly = found < 0;
        found = i;
    }
    return isOnly ? found : -1;
}

void CodedChoice::Finish() {
    if (!isEditable()) return;
    const QString typed = lineEdit()->text().trimmed();
    const int shown = findData(QByteArray::fromStdString(value_));
    if (typed == itemText(shown)) return;
    const int index = typed.isEmpty() ? -1 : FindTyped(typed);
    if (index >= 0) {
        if (CodeAt(index) == value_) setEditText(itemText(index));
        return Choose(index);
    }
    std::string value = typed.toStdString();
    std::ranges::replace(value, '#', ' ');
    if (takesOthers_ && static_cast<int>(value.size()) == width_) {
        Q_EMIT Chosen(value);
        return;
    }
    setEditText(itemText(shown));
    Q_EMIT Refused(typed);
}

// As wide as its texts need, as far as the screen goes.
void CodedChoice::showPopup() {
    constexpr int kMargin = 40;
    const int needed = view()->sizeHintForColumn(0) + kMargin;
    view()->setMinimumWidth(std::clamp(needed, width(), std::max(width(), window()->width() / 2)));
    QComboBox::showPopup();
}

// A text that is longer than its box ends in an ellipsis.
void CodedChoice::paintEvent(QPaintEvent* event) {
    if (isEditable()) return QComboBox::paintEvent(event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText =
        fontMetrics().elidedText(option.currentText, Qt::ElideRight, field.width());
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

}  // namespace quillory
