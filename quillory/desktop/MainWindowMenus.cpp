#include <quillory/desktop/CharacterPalette.h>
#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/Desk.h>
#include <quillory/desktop/DeskSettings.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/FieldPicker.h>
#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/RepairDialog.h>
#include <quillory/desktop/RulesDialog.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/Theme.h>
#include <quillory/repair/ChosenRepairs.h>

#include <QActionGroup>
#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

namespace quillory {

QAction* MainWindow::Add(QMenu* menu, const QString& text, const QKeySequence& key, Needs needs,
                         Handler handler) {
    QAction* action = menu->addAction(text);
    action->setShortcut(key);
    const QString name = QString(text).remove(u'&').remove(u'…');
    action->setToolTip(key.isEmpty() ? name
                                     : QStringLiteral("%1 (%2)").arg(
                                           name, key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, std::move(handler));
    actions_.emplace_back(action, needs);
    return action;
}

void MainWindow::UpdateActions() {
    const EditSession* session = record_.Session();
    for (const auto& [action, needs] : actions_) {
        bool isPossible = true;
        switch (needs) {
            case kNothing:
                break;
            case kFile:
                isPossible = document_ != nullptr;
                break;
            case kRecord:
                isPossible = session != nullptr;
                break;
            case kEditable:
                isPossible = record_.CanChange();
                break;
            case kRows:
                isPossible = record_.CanChange() && tabs_->currentWidget() == table_;
                break;
            case kRowOrCopy:
                isPossible = record_.CanChange() && (tabs_->currentWidget() == table_ ||
                                                     tabs_->currentWidget() == copies_);
                break;
            case kRoomForNew:
                isPossible = document_ == nullptr || !IsHeldByAnother();
                break;
            case kStore:
                isPossible = document_ != nullptr && document_->IsStore() && !IsHeldByAnother();
                break;
            case kHeld:
                isPossible = IsHeldByAnother();
                break;
            case kChanges:
                isPossible = document_ != nullptr && document_->IsChanged();
                break;
            case kUndo:
                isPossible = record_.CanChange() && (session->CanUndo() || lines_->IsAhead());
                break;
            case kRedo:
                isPossible = record_.CanChange() && (session->CanRedo() || lines_->CanBringBack());
                break;
        }
        action->setEnabled(isPossible);
    }
}

void MainWindow::MakeMenus() {
    MakeFileMenu();
    MakeEditMenu();
    MakeRecordMenu();
    MakeOtherMenus();
}

void MainWindow::MakeFileMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    AddNewActions(menu);
    open_ = Add(menu, tr("&Open…"), QKeySequence::Open, kNothing, [this] { ChooseFile(); });
    QMenu* recent = menu->addMenu(tr("Open &Recent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecent(recent); });
    FillRecent(recent);
    QMenu* store = menu->addMenu(tr("Stor&e"));
    Add(store, tr("Open the Stor&e"), QKeySequence(tr("Ctrl+Shift+O")), kNothing,
        [this] { OpenStore(); });
    Add(store, tr("Add a &File to the Store…"), {}, kStore, [this] { ChooseFileForStore(); });
    menu->addSeparator();
    save_ = Add(menu, tr("&Save"), QKeySequence::Save, kFile, [this] { Save(); });
    Add(menu, tr("Save &As…"), QKeySequence(tr("Ctrl+Shift+S")), kFile, [this] { ChooseTarget(); });
    Add(menu, tr("Re&load"), {}, kFile, [this] { Reload(); });
    Add(menu, tr("Ta&ke It Over"), {}, kHeld, [this] { TakeOver(); });
    menu->addSeparator();
    Add(menu, tr("&Close"), QKeySequence(tr("Ctrl+W")), kFile, [this] { CloseFile(); });
    Add(menu, tr("&Quit"), QKeySequence(tr("Ctrl+Q")), kNothing, [this] { close(); });
}

void MainWindow::FillRecent(QMenu* menu) {
    menu->clear();
    const QStringList files = settings_.RecentFiles();
    menu->setEnabled(!files.isEmpty());
    for (const QString& file : files) {
        connect(menu->addAction(file), &QAction::triggered, this, [this, file] { Open(file); });
    }
}

void MainWindow::MakeEditMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    undo_ = Add(menu, tr("&Undo"), QKeySequence::Undo, kUndo, [this] { Undo(); });
    redo_ = Add(menu, tr("&Redo"), QKeySequence(tr("Ctrl+Shift+Z")), kRedo, [this] { Redo(); });
    menu->addSeparator();
    Add(menu, tr("Copy &Field"), QKeySequence(tr("Ctrl+Shift+C")), kRecord,
        [this] { table_->CopyField(); });
    Add(menu, tr("&Paste Fields"), QKeySequence(tr("Ctrl+Shift+V")), kEditable, [this] {
        const QString fault = table_->PasteFields();
        if (!fault.isEmpty()) messages_->Warn(fault);
    });
    menu->addSeparator();
    Add(menu, tr("Special &Characters"), QKeySequence(tr("Ctrl+M")), kEditable,
        [this] { palette_->Toggle(); });
}

void MainWindow::MakeRecordMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Record"));
    addField_ = Add(menu, tr("New &Field…"), QKeySequence(tr("Ctrl+Return")), kEditable,
                    [this] { AddFieldOrCopy(); });
    Add(menu, tr("Remove F&ield"), QKeySequence(tr("Ctrl+Del")), kRowOrCopy,
        [this] { RemoveFieldOrCopy(); });
    Add(menu, tr("New &Subfield"), QKeySequence(tr("Ctrl+D")), kRows,
        [this] { table_->AddSubfield(); });
    Add(menu, tr("Remove S&ubfield"), QKeySequence(tr("Shift+Del")), kRows,
        [this] { table_->RemoveSubfield(); });
    Add(menu, tr("Rename the &Tag"), QKeySequence(tr("F2")), kRows,
        [this] { table_->RenameTag(); });
    Add(menu, tr("Move Field U&p"), QKeySequence(tr("Alt+Up")), kRows,
        [this] { table_->MoveField(-1); });
    Add(menu, tr("Move Field &Down"), QKeySequence(tr("Alt+Down")), kRows,
        [this] { table_->MoveField(1); });
    menu->addSeparator();
    Add(menu, tr("As Te&xt"), QKeySequence(tr("Ctrl+T")), kRecord, [this] {
        const bool isText = tabs_->currentWidget() == lines_;
        tabs_->setCurrentWidget(isText ? static_cast<QWidget*>(table_) : lines_);
        GoIntoRecord();
    });
    AddCodedActions(menu->addMenu(tr("&Coded Fields")));
    Add(menu, tr("Copi&es"), QKeySequence(tr("Ctrl+K")), kRecord, [this] { ShowCopies(); });
    menu->addSeparator();
    QMenu* go = menu->addMenu(tr("&Go"));
    Add(go, tr("&Next Field"), QKeySequence(tr("Ctrl+Down")), kRecord,
        [this] { table_->GoToNextField(1); });
    Add(go, tr("Pre&vious Field"), QKeySequence(tr("Ctrl+Up")), kRecord,
        [this] { table_->GoToNextField(-1); });
    Add(go, tr("Next Re&cord"), QKeySequence(tr("Ctrl+PgDown")), kFile, [this] { NextRecord(1); });
    Add(go, tr("Previous Rec&ord"), QKeySequence(tr("Ctrl+PgUp")), kFile,
        [this] { NextRecord(-1); });
}

void MainWindow::MakeOtherMenus() {
    QMenu* find = menuBar()->addMenu(tr("F&ind"));
    Add(find, tr("&Find Records"), QKeySequence::Find, kFile, [this] {
        filter_->setFocus();
        filter_->selectAll();
    });
    Add(find, tr("Show &All Records"), QKeySequence(tr("Ctrl+Shift+F")), kFile,
        [this] { Filter({}); });
    Add(find, tr("&Go to Record…"), QKeySequence(tr("Ctrl+G")), kFile, [this] { GoToRecord(); });

    QMenu* check = menuBar()->addMenu(tr("&Check"));
    Add(check, tr("&Findings of the Record"), QKeySequence(tr("F5")), kRecord, [this] {
        if (!FinishEditing()) return;
        CheckNow();
        findings_->setFocus();
    });
    repair_ =
        Add(check, tr("&Repair…"), QKeySequence(tr("Ctrl+R")), kEditable, [this] { Repair(); });
    Add(check, tr("R&ules…"), {}, kNothing, [this] { RulesDialog(desk_.Rules(), this).exec(); });

    QMenu* view = menuBar()->addMenu(tr("&View"));
    auto* display = new QActionGroup(this);
    const QStringList texts{tr("&Names and Codes"), tr("Names &Only"), tr("&Codes and Names"),
                            tr("Codes On&ly")};
    for (int option = 0; option < texts.size(); ++option) {
        QAction* action = view->addAction(texts[option]);
        action->setCheckable(true);
        action->setChecked(option == static_cast<int>(desk_.Display()));
        display->addAction(action);
        connect(action, &QAction::triggered, this, [this, option] { SetDisplay(option); });
    }
    view->addSeparator();
    QAction* dark = view->addAction(tr("&Dark"));
    dark->setCheckable(true);
    dark->setChecked(settings_.IsDark());
    connect(dark, &QAction::toggled, this, &MainWindow::SetDark);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    Add(help, tr("What Is &in Hand"), QKeySequence(tr("F1")), kRecord,
        [this] { help_->setFocus(); });
    Add(help, tr("Open the Sa&mples"), {}, kNothing, [this] { OpenSamples(); });
    Add(help, tr("&About"), {}, kNothing, [this] {
        QMessageBox::about(this, QApplication::applicationDisplayName(),
                           tr("Quillory Desk %1\nMARC 21 records, opened, edited and checked.")
                               .arg(QApplication::applicationVersion()));
    });
}

void MainWindow::MakeToolBar() {
    QToolBar* bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addActions({new_, open_, save_});
    bar->addSeparator();
    bar->addActions({undo_, redo_});
    bar->addSeparator();
    bar->addActions({addField_, repair_});
    bar->addSeparator();
    filter_ = new QLineEdit(bar);
    filter_->setClearButtonEnabled(true);
    filter_->setPlaceholderText(tr("Find: words, or an expression such as 245a contains rivers"));
    filter_->setAccessibleName(tr("Find records"));
    filter_->setToolTip(
        tr("Words that records have, or an expression: has 856u, 008/35-37 = eng, "
           "not valid (Ctrl+F)"));
    bar->addWidget(filter_);
    connect(filter_, &QLineEdit::textEdited, this, [this] { typing_->start(); });
    connect(filter_, &QLineEdit::returnPressed, this, [this] {
        if (!Filter(filter_->text())) return;
        isMatchWanted_ = true;
        list_->setFocus();
    });
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty()) typing_->start();
    });
}

void MainWindow::GoToRecord() {
    const QString typed =
        QInputDialog::getText(this, tr("Go to record"), tr("Number, or control number (001):"));
    if (typed.isEmpty()) return;
    bool isNumber = false;
    const qulonglong number = typed.toULongLong(&isNumber);
    const auto record = isNumber ? document_->File().IndexOf(number) : std::nullopt;
    if (record) return ShowRecord(*record);
    const QString quoted = QString(typed).replace(u'"', QStringLiteral("\"\""));
    isMatchWanted_ = Filter(QStringLiteral("001 = \"%1\"").arg(quoted));
}

void MainWindow::NextRecord(int by) {
    const int row = list_->currentIndex().row() + by;
    if (row >= 0 && row < listModel_->rowCount()) {
        list_->setCurrentIndex(listModel_->index(row, 1));
    }
}

void MainWindow::AddField() {
    if (!FinishEditing()) return;
    tabs_->setCurrentWidget(table_);
    FieldPicker picker(this);
    if (picker.exec() != QDialog::Accepted) return;
    const std::string tag = picker.Tag();
    if (!tag.empty()) table_->AddField(tag);
}

// Only the bytes that a repair names are changed, as one step.
void MainWindow::Repair() {
    if (!FinishEditing() || record_.Session() == nullptr) return;
    Record record;
    Losses unused;
    record_.Session()->Give(record, unused);
    const std::vector<quillory::Repair> repairs = desk_.PutRight(record);
    if (repairs.empty()) {
        SayShortly(tr("The coded fields of this record need no repair."));
        return;
    }
    RepairDialog dialog(repairs, desk_.Lists(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    record_.Do([&](EditSession& session) {
        const std::vector<bool> chosen = dialog.Chosen();
        EditSession::State state = session.Now();
        state.leader = WithChosen(repairs, chosen, Place::OfLeader(), state.leader);
        for (std::size_t i = 0; i < state.fields.size(); ++i) {
            std::string& content = state.fields[i].content;
            content = WithChosen(repairs, chosen, PlaceOf(session.Now(), i), content);
        }
        session.Become(std::move(state));
    });
}

void MainWindow::Undo() {
    table_->Finish();
    coded_->Finish();
    copies_->Finish();
    if (lines_->IsAhead()) return lines_->TakeBack();
    GoThroughSteps(&EditSession::Undo);
}

void MainWindow::Redo() {
    table_->Finish();
    coded_->Finish();
    copies_->Finish();
    if (lines_->CanBringBack()) return lines_->BringBack();
    GoThroughSteps(&EditSession::Redo);
}

// What has become another is seen.
void MainWindow::GoThroughSteps(void (EditSession::*step)()) {
    if (record_.Session() == nullptr) return;
    const auto before = record_.Session()->Shared();
    record_.Do([step](EditSession& session) { (session.*step)(); });
    table_->GoToChange(*before);
}

void MainWindow::SetDisplay(int display) {
    const auto option = static_cast<zorby::EDISPLAYOPTIONS>(display);
    table_->SetDisplay(option);
    Try([&] { desk_.SetDisplay(option); });
}

void MainWindow::SetDark(bool isDark) {
    settings_.SetDark(isDark);
    SetTheme(isDark);
    CheckNow();
    listModel_->RefreshAll();
}

}  // namespace quillory
