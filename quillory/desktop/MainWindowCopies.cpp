#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/Desk.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>

// The window's part in copies.
namespace quillory {

void MainWindow::MakeCopies() {
    copies_ = new CopiesEditor(record_, tabs_);
    const int tab = tabs_->insertTab(2, copies_, tr("Copies"));
    connect(copies_, &CopiesEditor::Counted, this, [this, tab] {
        const int count = copies_->Count();
        tabs_->setTabText(tab, count == 0 ? tr("Copies") : tr("Copies (%1)").arg(count));
    });
    connect(copies_, &CopiesEditor::SystemChosen, this, &MainWindow::FollowHoldings);
    connect(copies_, &CopiesEditor::PlaceChanged, this, &MainWindow::ShowHelp);
    connect(copies_, &CopiesEditor::Said, this, &MainWindow::SayShortly);
}

// Another holdings system names other fields, and other records lack copies.
void MainWindow::FollowHoldings() {
    Try([this] { desk_.FollowHoldings(); });
    CheckNow();
    listModel_->RefreshAll();
    ShowHelp();
}

void MainWindow::ShowCopies() {
    tabs_->setCurrentWidget(copies_);
    if (tabs_->currentWidget() == copies_) copies_->TakeFocus();
}

void MainWindow::AddFieldOrCopy() {
    if (tabs_->currentWidget() == copies_) {
        copies_->New();
    } else {
        AddField();
    }
}

void MainWindow::RemoveFieldOrCopy() {
    if (tabs_->currentWidget() == copies_) {
        copies_->Remove();
    } else {
        table_->RemoveField();
    }
}

// What the holdings dictionary says of the element in hand. False if none is in hand.
bool MainWindow::ShowCopyHelp() {
    const bool isShown = tabs_->currentWidget() == copies_;
    const CopyElement* element = isShown ? copies_->CurrentElement() : nullptr;
    if (element == nullptr) return false;
    helpHeading_->setText(ToQt(PlaceText(element->place) + "  " + element->name));
    help_->setFont(font());
    help_->setPlainText(ToQt(element->help));
    return true;
}

}  // namespace quillory
