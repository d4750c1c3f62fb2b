#include <quillory/coded/Material.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/WindowSize.h>
#include <quillory/desktop/WorkformDialog.h>
#include <quillory/desktop/WorkformList.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/Settings.h>
#include <zorby/platform/ClockPort.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

namespace quillory {
namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 560;
constexpr int kLeastHelpLines = 2;
constexpr int kHelpLines = 5;
constexpr int kRoomOfFrame = 12;
constexpr auto kQuestion = "question";  // a property of a box: its number

Description DescriptionBy(const std::string& workform) {
    Description description;
    description.workform = workform;
    return description;
}

}  // namespace

WorkformDialog::WorkformDialog(QWidget* parent)
    : QDialog(parent),
      list_(new WorkformList(
          [this](int id) { return MaterialText(maker_->PatternFor(std::to_string(id)).Leader()); },
          this)),
      area_(new QScrollArea(this)),
      all_(new QCheckBox(tr("&Ask for every subfield"), this)),
      help_(new QPlainTextEdit(this)),
      fault_(new QLabel(this)) {
    const Reporter reporter(messages_, {.quiet = true});
    workforms_.emplace(reporter);
    maker_.emplace([this](const std::string& id) { return workforms_->Get(std::stoi(id)); },
                   LoadCodeLists, zorby::CurrentClockPort().LocalTime(),
                   RecordHabits{true, LibraryCode()});
    setWindowTitle(tr("New record"));
    ResizeToScreen(*this, {kWidth, kHeight});
    auto* panes = new QSplitter(this);
    panes->setChildrenCollapsible(false);
    panes->addWidget(list_);
    panes->addWidget(MakeQuestions());
    panes->setStretchFactor(1, 1);
    panes->setSizes({width() * 2 / 5, width() * 3 / 5});
    fault_->setWordWrap(true);
    fault_->hide();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Make the Record"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(panes, 1);
    layout->addWidget(fault_);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &WorkformDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &WorkformList::Changed, this, &WorkformDialog::ShowQuestions);
    connect(list_, &WorkformList::Entered, this, &WorkformDialog::BeginToAnswer);
    list_->Fill(*workforms_);
    list_->setFocus();
}

QWidget* WorkformDialog::MakeQuestions() {
    auto* part = new QWidget(this);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setFocusPolicy(Qt::NoFocus);
    help_->setReadOnly(true);
    help_->setTabChangesFocus(true);
    help_->setAccessibleName(tr("What the workform says of the subfield in hand"));
    help_->setMinimumHeight(kLeastHelpLines * fontMetrics().lineSpacing() + kRoomOfFrame);
    help_->setMaximumHeight(kHelpLines * fontMetrics().lineSpacing() + kRoomOfFrame);
    layout->addWidget(all_);
    layout->addWidget(area_, 1);
    layout->addWidget(help_);
    connect(all_, &QCheckBox::toggled, this, &WorkformDialog::ShowQuestions);
    return part;
}

// By which the maker calls the workform; empty if none is chosen.
std::string WorkformDialog::Chosen() const {
    const int id = list_->Chosen();
    return id == 0 ? std::string() : std::to_string(id);
}

// What was typed stays for a box of the same place, of this workform or another.
void WorkformDialog::KeepAnswers() {
    for (const Box& box : boxes_) answers_[PlaceText(box.question.place)] = box.edit->text();
}

// The boxes come after what chooses them, and the help after the boxes.
void WorkformDialog::OrderForTab() {
    QWidget* last = all_;
    for (const Box& box : boxes_) {
        setTabOrder(last, box.edit);
        last = box.edit;
    }
    setTabOrder(last, help_);
}

void WorkformDialog::BeginToAnswer() {
    if (boxes_.empty()) {
        accept();
    } else {
        boxes_.front().edit->setFocus(Qt::TabFocusReason);
    }
}

void WorkformDialog::GoToNextField(std::size_t from, int by) {
    const Place field = boxes_[from].question.place.Field();
    const auto isFirst = [this](std::size_t at) {
        return at == 0 ||
               boxes_[at].question.place.Field() != boxes_[at - 1].question.place.Field();
    };
    for (std::size_t at = from + static_cast<std::size_t>(by); at < boxes_.size();
         at += static_cast<std::size_t>(by)) {
        if (boxes_[at].question.place.Field() == field || !isFirst(at)) continue;
        boxes_[at].edit->setFocus(Qt::TabFocusReason);
        area_->ensureWidgetVisible(boxes_[at].edit);
        return;
    }
}

void WorkformDialog::ShowQuestions() {
    KeepAnswers();
    boxes_.clear();
    help_->clear();
    auto* page = new QWidget(area_);
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    if (const std::string id = Chosen(); !id.empty()) {
        const Pattern& pattern = maker_->PatternFor(id);
        const Draft draft = maker_->Begin(DescriptionBy(id));
        Place field;
        for (const Question& question : QuestionsOf(pattern, draft, true)) {
            if (!IsShown(question, pattern)) continue;
            if (question.place.Field() != field) AddHeading(question, *grid);
            field = question.place.Field();
            AddQuestion(question, *grid);
        }
    }
    grid->setRowStretch(grid->rowCount(), 1);
    area_->setWidget(page);
    OrderForTab();
}

// All of them, or those that the workform asks; one that is answered stays in any case.
bool WorkformDialog::IsShown(const Question& question, const Pattern& pattern) const {
    const auto answer = answers_.find(PlaceText(question.place));
    return all_->isChecked() || IsAsked(pattern.Workform(), question.place) ||
           (answer != answers_.end() && !answer->second.isEmpty());
}

void WorkformDialog::AddHeading(const Question& question, QGridLayout& grid) {
    const QString text =
        QStringLiteral("%1  %2").arg(ToQt(PlaceText(question.place.Field())), ToQt(question.field));
    auto* heading = new QLabel(text, area_);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    heading->setWordWrap(true);
    grid.addWidget(heading, grid.rowCount(), 0, 1, 2);
}

void WorkformDialog::AddQuestion(const Question& question, QGridLayout& grid) {
    constexpr int kNameChars = 18;
    const QString name = ToQt(question.subfield);
    auto* edit = new QLineEdit(area_);
    edit->setMinimumWidth(0);
    edit->setAccessibleName(QStringLiteral("%1  %2, %3")
                                .arg(ToQt(PlaceText(question.place)), ToQt(question.field), name));
    edit->setProperty(kQuestion, static_cast<int>(boxes_.size()));
    edit->installEventFilter(this);
    auto* label = new QLabel(
        QStringLiteral("$%1  %2").arg(QLatin1Char(question.place.code)).arg(name), area_);
    label->setWordWrap(true);
    label->setFixedWidth(kNameChars * fontMetrics().averageCharWidth());
    label->setBuddy(edit);
    const int line = grid.rowCount();
    grid.addWidget(label, line, 0);
    grid.addWidget(edit, line, 1);
    if (const auto known = answers_.find(PlaceText(question.place)); known != answers_.end()) {
        edit->setText(known->second);
    }
    boxes_.push_back({question, edit});
}

void WorkformDialog::ShowHelp(const Place& place) {
    const QString help = ToQt(HelpFor(place, maker_->PatternFor(Chosen())));
    help_->setPlainText(help.isEmpty() ? tr("There is no help on this subfield.") : help);
}

// False if an answer can't be a part of a record; it is named and in hand then.
bool WorkformDialog::TakeAnswers(Draft& draft) {
    for (const Box& box : boxes_) {
        const QString answer = box.edit->text().trimmed();
        if (answer.isEmpty()) continue;
        try {
            draft.Take(MakeEntry(box.question.place, answer.toStdString()));
        } catch (const EntryError& error) {
            fault_->setText(SignOf(Severity::Error) + u' ' + ToQt(error.what()));
            fault_->show();
            box.edit->setFocus();
            return false;
        }
    }
    return true;
}

void WorkformDialog::accept() {
    const std::string id = Chosen();
    if (id.empty()) return;
    const Description description = DescriptionBy(id);
    draft_.emplace(maker_->Begin(description));
    if (!TakeAnswers(*draft_)) return;
    made_ = maker_->Finish(*draft_, description);
    QDialog::accept();
}

// What is known of a box is shown with it. The keys that lead from field to field do so here, too.
bool WorkformDialog::eventFilter(QObject* watched, QEvent* event) {
    const auto number = static_cast<std::size_t>(watched->property(kQuestion).toInt());
    if (number >= boxes_.size()) return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) ShowHelp(boxes_[number].question.place);
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isStep = key->key() == Qt::Key_Down || key->key() == Qt::Key_Up;
        if (isStep && key->modifiers() == Qt::ControlModifier) {
            GoToNextField(number, key->key() == Qt::Key_Down ? 1 : -1);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quillory
