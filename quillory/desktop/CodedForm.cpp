#include <quillory/coded/FreeValues.h>
#include <quillory/desktop/CodedChoice.h>
#include <quillory/desktop/CodedForm.h>
#include <quillory/desktop/Texts.h>
#include <quillory/edits/CodedChange.h>
#include <quillory/reports/CodedDocument.h>

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

namespace quillory {
namespace {

enum Column : int { kPositions, kName, kControl, kSign, kColumns };
constexpr auto kRowOf = "row";  // a property of a control
constexpr int kNameChars = 24;
constexpr int kNarrowChars = 64;

std::string Slice(const std::string& content, int first, int width) {
    const auto at = static_cast<std::size_t>(first);
    return at < content.size() ? content.substr(at, static_cast<std::size_t>(width))
                               : std::string();
}

// Numbers and dates, with codes beside them or without.
bool TakesNumbers(const Element& element) {
    if (element.IsUndefined()) return false;
    const std::string number(static_cast<std::size_t>(element.Width()), '1');
    return ReadFreeValue(element.parts.front(), number).has_value();
}

// A blank says in the first place of several what it says of all of them.
std::vector<CodeMeaning> ForFurtherPlaces(std::vector<CodeMeaning> codes) {
    for (CodeMeaning& code : codes) {
        if (IsAll(code.code, ' ')) code.text.clear();
    }
    return codes;
}

// Whether both are of the same field, and have positions in common.
bool Overlap(const Place& a, const Place& b) {
    return a.Tag() == b.Tag() && std::max(a.occurrence, 1U) == std::max(b.occurrence, 1U) &&
           a.HasPositions() && a.first <= b.last && b.first <= a.last;
}

QString NameOf(const Element& element, const CodeLists& lists) {
    const std::string& former = lists.FormerNameOf(element);
    if (!element.IsUndefined() || former.empty()) return ToQt(element.name);
    return CodedForm::tr("Undefined (was: %1)").arg(ToQt(former));
}

}  // namespace

CodedForm::CodedForm(const Place& field, zorby::CFType form, const CodeLists& lists,
                     const std::string& content, QWidget* parent)
    : QWidget(parent),
      field_(field),
      form_(form),
      lists_(lists),
      grid_(new QGridLayout(this)),
      inHand_(field) {
    grid_->setColumnStretch(kControl, 1);
    grid_->setHorizontalSpacing(8);
    grid_->setVerticalSpacing(3);
    bool isUsual = true;
    for (const AskedElement& asked : ElementsAsked(field, form)) {
        if (!Needs(asked, content)) continue;
        const bool isOther = isUsual && !asked.isUsual && !rows_.empty();
        AddRow(asked, isOther ? MakeHeading(tr("Further elements")) : nullptr);
        isUsual = asked.isUsual;
    }
    Arrange();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        for (CodedChoice* choice : rows_[i].choices) Watch(*choice, i);
        if (rows_[i].box != nullptr) Watch(*rows_[i].box, i);
    }
    SetContent(content);
}

bool CodedForm::Needs(const AskedElement& asked, const std::string& content) const {
    if (BelongsToTheFile(asked.In(field_))) return false;
    if (!asked.element->IsUndefined()) return true;
    const std::string value = Slice(content, asked.In(field_).first, asked.element->Width());
    return !value.empty() && !IsAll(value, ' ') && !IsAll(value, kFill);
}

bool CodedForm::Fits(zorby::CFType form, const std::string& content) const {
    if (form != form_) return false;
    const auto elements = ElementsAsked(field_, form_);
    return std::ranges::all_of(elements, [&](const AskedElement& asked) {
        const bool isThere = std::ranges::any_of(
            rows_, [&](const Row& row) { return row.asked.element == asked.element; });
        return isThere || !Needs(asked, content);
    });
}

QLabel* CodedForm::MakeHeading(const QString& text) {
    auto* heading = new QLabel(text, this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    heading->setContentsMargins(0, fontMetrics().height() / 2, 0, 0);
    return heading;
}

void CodedForm::AddRow(const AskedElement& asked, QLabel* heading) {
    Row row;
    row.asked = asked;
    row.place = asked.In(field_);
    row.heading = heading;
    row.positions = new QLabel(ToQt(PositionsText(row.place.first, row.place.last)), this);
    row.positions->setForegroundRole(QPalette::PlaceholderText);
    row.name = new QLabel(NameOf(*asked.element, lists_), this);
    row.name->setWordWrap(true);
    row.sign = new QLabel(this);
    row.sign->setFixedWidth(fontMetrics().horizontalAdvance(u'✖') + 2);
    const bool hasCodes = !lists_.CodesOf(*asked.element).empty();
    row.control = hasCodes ? MakeChoices(row, rows_.size()) : MakeBox(row, rows_.size());
    row.name->setBuddy(ControlOf(row));
    rows_.push_back(std::move(row));
}

void CodedForm::FitInto(int width) {
    const bool isNarrow = width < kNarrowChars * fontMetrics().averageCharWidth();
    if (isNarrow == isNarrow_) return;
    isNarrow_ = isNarrow;
    Arrange();
}

void CodedForm::Arrange() {
    while (QLayoutItem* item = grid_->takeAt(0)) delete item;
    const int nameWidth = kNameChars * fontMetrics().averageCharWidth();
    int line = 0;
    for (const Row& row : rows_) {
        if (row.heading != nullptr) grid_->addWidget(row.heading, line++, kPositions, 1, kColumns);
        row.name->setMinimumWidth(isNarrow_ ? 0 : nameWidth);
        row.name->setMaximumWidth(isNarrow_ ? QWIDGETSIZE_MAX : nameWidth);
        grid_->addWidget(row.positions, line, kPositions);
        grid_->addWidget(row.sign, line, kSign);
        if (isNarrow_) {
            grid_->addWidget(row.name, line++, kName, 1, 2);
            grid_->addWidget(row.control, line++, kPositions, 1, kSign);
        } else {
            grid_->addWidget(row.name, line, kName);
            grid_->addWidget(row.control, line++, kControl);
        }
    }
    for (int i = 0; i < grid_->rowCount(); ++i) grid_->setRowStretch(i, 0);
    grid_->setRowStretch(line, 1);
}

// Elements of several codes have a choice for each, two in a line.
QWidget* CodedForm::MakeChoices(Row& row, std::size_t index) {
    const Element& element = *row.asked.element;
    const int width = lists_.CodeLengthOf(element);
    const int count = std::max(element.Width() / std::max(width, 1), 1);
    auto* part = new QWidget(this);
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(3);
    for (int i = 0; i < count; ++i) {
        const auto& codes = lists_.CodesOf(element);
        auto* choice = new CodedChoice(i == 0 ? codes : ForFurtherPlaces(codes), width,
                                       TakesNumbers(element), part);
        QString name =
            QStringLiteral("%1, %2").arg(NameOf(element, lists_), ToQt(PlaceText(row.place)));
        if (count > 1) name += tr(", code %1 of %2").arg(i + 1).arg(count);
        choice->setAccessibleName(name);
        const std::size_t at = static_cast<std::size_t>(i) * static_cast<std::size_t>(width);
        connect(choice, &CodedChoice::Chosen, this,
                [this, index, at](const std::string& code) { Take(index, at, code); });
        connect(choice, &CodedChoice::Refused, this, [this, index](const QString& typed) {
            Q_EMIT Refused(NameOf(*rows_[index].asked.element, lists_), typed);
        });
        grid->addWidget(choice, i / 2, i % 2);
        row.choices.push_back(choice);
    }
    return part;
}

QWidget* CodedForm::MakeBox(Row& row, std::size_t index) {
    const Element& element = *row.asked.element;
    auto* part = new QWidget(this);
    auto* line = new QGridLayout(part);
    line->setContentsMargins(0, 0, 0, 0);
    row.box = new QLineEdit(part);
    row.box->setMaxLength(element.Width());
    row.box->setFixedWidth((element.Width() + 4) * fontMetrics().horizontalAdvance(u'0'));
    row.box->setAccessibleName(
        QStringLiteral("%1, %2").arg(NameOf(element, lists_), ToQt(PlaceText(row.place))));
    row.box->setToolTip(tr("%n character(s), a blank as #", "", element.Width()));
    row.meaning = new QLabel(part);
    row.meaning->setForegroundRole(QPalette::PlaceholderText);
    line->addWidget(row.box, 0, 0);
    line->addWidget(row.meaning, 0, 1);
    line->setColumnStretch(1, 1);
    connect(row.box, &QLineEdit::editingFinished, this, [this, index] { TakeBox(index); });
    return part;
}

QWidget* CodedForm::ControlOf(const Row& row) {
    return row.box != nullptr ? static_cast<QWidget*>(row.box) : row.choices.front();
}

void CodedForm::SetContent(const std::string& content) {
    for (Row& row : rows_) Show(row, content);
}

void CodedForm::Show(Row& row, const std::string& content) {
    const Element& element = *row.asked.element;
    row.value = Slice(content, row.place.first, element.Width());
    if (row.box != nullptr) {
        const QString text = ToQt(CodeText(row.value));
        if (row.box->text() != text) row.box->setText(text);
        const auto free =
            element.IsUndefined() ? std::nullopt : ReadFreeValue(element.parts.front(), row.value);
        const bool isMisfit = free && !free->fits;
        row.meaning->setText(isMisfit ? tr("not a value of this element")
                             : free   ? ToQt(free->text)
                                      : QString());
        return;
    }
    const int width = lists_.CodeLengthOf(element);
    for (std::size_t i = 0; i < row.choices.size(); ++i) {
        const std::string code = Slice(row.value, static_cast<int>(i) * width, width);
        CodeMeaning meaning = lists_.Find(element, code);
        const auto free = ReadFreeValue(
            element.IsUndefined() ? zorby::CFPUndefined : element.parts.front(), code);
        if (meaning.state == CodeState::Unknown && free && free->fits) {
            meaning.text = free->text;
            meaning.state = CodeState::Known;
        }
        row.choices[i]->SetValue(meaning);
    }
}

void CodedForm::SetRemarks(const std::vector<Remark>& remarks) {
    for (Row& row : rows_) {
        QString words;
        Severity heaviest = Severity::Note;
        for (const Remark& remark : remarks) {
            if (!Overlap(remark.place, row.place)) continue;
            heaviest = std::min(heaviest, remark.severity);
            if (!words.isEmpty()) words += u'\n';
            words += WordOf(remark.severity) + QStringLiteral(": ") + ToQt(RemarkText(remark));
        }
        row.sign->setText(words.isEmpty() ? QString() : SignOf(heaviest));
        row.sign->setToolTip(words);
        QPalette colors = palette();
        colors.setColor(QPalette::WindowText, ColorOf(heaviest, palette().color(QPalette::Window)));
        row.sign->setPalette(colors);
        ControlOf(row)->setAccessibleDescription(words);
    }
}

void CodedForm::GoTo(int position) {
    const auto row = std::ranges::find_if(rows_, [position](const Row& each) {
        return each.place.first <= position && position <= each.place.last;
    });
    if (rows_.empty()) return;
    const Row& found = row == rows_.end() ? rows_.front() : *row;
    QWidget* control = ControlOf(found);
    if (!found.choices.empty()) {
        const int width = std::max(lists_.CodeLengthOf(*found.asked.element), 1);
        const int at = std::max(position - found.place.first, 0) / width;
        control = found.choices[std::min(static_cast<std::size_t>(at), found.choices.size() - 1)];
    }
    control->setFocus(Qt::TabFocusReason);
}

void CodedForm::Finish() {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (rows_[i].box != nullptr) TakeBox(i);
        for (CodedChoice* choice : rows_[i].choices) choice->Finish();
    }
}

bool CodedForm::IsTyped(const Row& row) {
    return row.box != nullptr && row.box->text() != ToQt(CodeText(row.value));
}

std::optional<std::string> CodedForm::TypedValue(const Row& row) {
    std::string value = row.box->text().toStdString();
    if (!std::ranges::all_of(value, [](char c) { return ' ' <= c && c <= '~'; })) {
        return std::nullopt;
    }
    std::ranges::replace(value, '#', ' ');
    if (value != row.value) {
        value.resize(static_cast<std::size_t>(row.asked.element->Width()), ' ');
    }
    return value;
}

void CodedForm::TellTyped() {
    for (const Row& row : rows_) {
        const auto value = IsTyped(row) ? TypedValue(row) : std::nullopt;
        if (value && *value != row.value) Q_EMIT Changed(row.place.first, *value);
    }
}

void CodedForm::Take(std::size_t row, std::size_t at, const std::string& value) {
    Q_EMIT Changed(rows_[row].place.first + static_cast<int>(at), value);
}

void CodedForm::TakeBox(std::size_t index) {
    const Row& row = rows_[index];
    if (!IsTyped(row)) return;
    const QString typed = row.box->text();
    const auto value = TypedValue(row);
    if (value && *value != row.value) return Q_EMIT Changed(row.place.first, *value);
    row.box->setText(ToQt(CodeText(row.value)));
    if (!value) Q_EMIT Refused(NameOf(*row.asked.element, lists_), typed);
}

void CodedForm::Watch(QWidget& control, std::size_t row) {
    control.setProperty(kRowOf, static_cast<int>(row));
    control.installEventFilter(this);
}

// A wheel that turns over the form moves the form, not a choice that it happens to pass.
bool CodedForm::eventFilter(QObject* watched, QEvent* event) {
    const auto* control = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Wheel && control != nullptr && !control->hasFocus()) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::FocusIn && control != nullptr) {
        const Row& row = rows_[static_cast<std::size_t>(control->property(kRowOf).toInt())];
        inHand_ = row.place;
        elementInHand_ = row.asked.element;
        Q_EMIT HandChanged();
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace quillory
