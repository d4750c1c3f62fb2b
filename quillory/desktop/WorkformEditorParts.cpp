#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/WorkformEditor.h>
#include <quillory/desktop/WorkformList.h>

#include <QAction>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>

// The parts that the editor of workforms is made of.
namespace quillory {
namespace {

constexpr int kLeastHelpLines = 2;
constexpr int kHelpLines = 4;
constexpr int kRoomOfFrame = 12;

QString NameOf(QString text) {
    return text.remove(u'&').remove(u'…');
}

// A part that a small screen shows a piece at a time.
QWidget* Scrolling(QWidget* part) {
    auto* area = new QScrollArea(part->parentWidget());
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(part);
    return area;
}

}  // namespace

QWidget* WorkformEditor::MakeList() {
    auto* part = new QWidget(this);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {copy_, remove_}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list_, 1);
    layout->addLayout(buttons);
    connect(copy_, &QPushButton::clicked, this, &WorkformEditor::Copy);
    connect(remove_, &QPushButton::clicked, this, &WorkformEditor::Remove);
    return part;
}

QWidget* WorkformEditor::MakeContent(const CodeLists& lists) {
    auto* part = new QWidget(this);
    table_ = new RecordTable(record_, tabs_);
    coded_ = new CodedEditor(record_, lists, tabs_);
    tabs_->addTab(table_, tr("&Fields"));
    tabs_->addTab(coded_, tr("&Coded"));
    MakeTools();
    auto* form = new QFormLayout;
    name_->setAccessibleName(tr("Name of the workform"));
    form->addRow(tr("&Name:"), name_);
    material_->setWordWrap(true);
    form->addRow(tr("Material:"), material_);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(form);
    layout->addWidget(tools_);
    layout->addWidget(tabs_, 1);
    layout->addWidget(MakeHelp());
    connect(name_, &QLineEdit::textChanged, this, [this] { Note(kNameStep); });
    connect(&record_, &OpenRecord::Changed, this, [this] { Note(kStepOfItsOwn); });
    connect(table_, &RecordTable::PlaceChanged, this, &WorkformEditor::ShowHelp);
    connect(table_, &RecordTable::Said, this, &WorkformEditor::Say);
    connect(coded_, &CodedEditor::Said, this, &WorkformEditor::Say);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] {
        table_->Finish();
        coded_->SetActive(tabs_->currentWidget() == coded_);
        ShowHelp();
    });
    return Scrolling(part);
}

QWidget* WorkformEditor::MakeHelp() {
    auto* part = new QWidget(this);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    QFont font = helpHeading_->font();
    font.setBold(true);
    helpHeading_->setFont(font);
    helpHeading_->setWordWrap(true);
    layout->addWidget(helpHeading_);
    layout->addWidget(isAsked_);
    layout->addWidget(MakeHelpTexts());
    connect(isAsked_, &QCheckBox::toggled, this, [this] { NoteHelp(kStepOfItsOwn); });
    return part;
}

QWidget* WorkformEditor::MakeHelpTexts() {
    struct Words {
        QString label;
        QString name;
    };
    const Words words[] = {{tr("&Rules"), tr("Rules for the subfield in hand")},
                           {tr("Re&minder"), tr("Reminder for the subfield in hand")},
                           {tr("E&xamples"), tr("Examples of the subfield in hand")}};
    auto* part = new QWidget(this);
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < static_cast<int>(texts_.size()); ++i) {
        auto* text = new QPlainTextEdit(part);
        text->setTabChangesFocus(true);
        text->setToolTip(tr("Shown when this subfield is filled"));
        text->setAccessibleName(words[i].name);
        text->setMinimumHeight(kLeastHelpLines * fontMetrics().lineSpacing() + kRoomOfFrame);
        text->setMaximumHeight(kHelpLines * fontMetrics().lineSpacing() + kRoomOfFrame);
        auto* label = new QLabel(words[i].label, part);
        label->setBuddy(text);
        grid->addWidget(label, 0, i);
        grid->addWidget(text, 1, i);
        connect(text, &QPlainTextEdit::textChanged, this, [this, i] { NoteTypedHelp(i); });
        texts_[static_cast<std::size_t>(i)] = text;
    }
    return part;
}

// No button is pressed by Enter: it belongs to the boxes.
QWidget* WorkformEditor::MakeButtons() {
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* close = buttons->addButton(QDialogButtonBox::Close);
    buttons->addButton(save_, QDialogButtonBox::ApplyRole);
    save_->setToolTip(
        tr("Save (%1)").arg(QKeySequence(QKeySequence::Save).toString(QKeySequence::NativeText)));
    auto* save = new QAction(this);
    save->setShortcut(QKeySequence::Save);
    addAction(save);
    connect(save, &QAction::triggered, save_, &QPushButton::click);
    for (QPushButton* button : {close, save_}) button->setAutoDefault(false);
    said_->setWordWrap(true);
    said_->hide();
    connect(save_, &QPushButton::clicked, this, &WorkformEditor::Save);
    connect(buttons, &QDialogButtonBox::rejected, this, &WorkformEditor::reject);
    return buttons;
}

template <class Handler>
void WorkformEditor::AddTool(const QString& text, const QString& key, Handler handler) {
    QAction* action = tools_->addAction(text);
    action->setShortcut(QKeySequence(key));
    action->setToolTip(QStringLiteral("%1 (%2)").arg(
        NameOf(text), action->shortcut().toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, handler);
}

void WorkformEditor::MakeTools() {
    tools_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    AddTool(tr("Undo"), tr("Ctrl+Z"), [this] {
        FinishTyping();
        undo_->undo();
    });
    AddTool(tr("Redo"), tr("Ctrl+Shift+Z"), [this] { undo_->redo(); });
    tools_->addSeparator();
    AddTool(tr("New Field…"), tr("Ctrl+Return"), [this] { AddField(); });
    AddTool(tr("Remove Field"), tr("Ctrl+Del"), [this] { table_->RemoveField(); });
    AddTool(tr("New Subfield"), tr("Ctrl+D"), [this] { table_->AddSubfield(); });
    AddTool(tr("Remove Subfield"), tr("Shift+Del"), [this] { table_->RemoveSubfield(); });
    AddTool(tr("Up"), tr("Alt+Up"), [this] { table_->MoveField(-1); });
    AddTool(tr("Down"), tr("Alt+Down"), [this] { table_->MoveField(1); });
}

}  // namespace quillory
