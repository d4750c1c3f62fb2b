#include <quillory/desktop/Desk.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/WorkformDialog.h>
#include <quillory/desktop/WorkformEditor.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/RecordWorkform.h>
#include <quillory/jobs/WorkformFields.h>

#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>

// The window's part in new records.
namespace quillory {

void MainWindow::AddNewActions(QMenu* menu) {
    new_ = Add(menu, tr("&New Record…"), QKeySequence::New, kRoomForNew, [this] { NewRecord(); });
    Add(menu, tr("New Record Like &This"), QKeySequence(tr("Ctrl+Shift+N")), kEditable,
        [this] { CopyRecord(); });
    Add(menu, tr("&Discard the New Record"), {}, kEditable, [this] { DiscardNewRecord(); });
    QMenu* workforms = menu->addMenu(tr("&Workforms"));
    Add(workforms, tr("Save as &Workform…"), {}, kRecord, [this] { SaveRecordAsWorkform(); });
    Add(workforms, tr("&Edit Workforms…"), {}, kNothing,
        [this] { Try([this] { WorkformEditor(desk_.Lists(), this).exec(); }); });
    menu->addSeparator();
}

void MainWindow::NewRecord() {
    if (!FinishEditing()) return;
    Try([this] {
        WorkformDialog dialog(this);
        if (dialog.exec() == QDialog::Accepted) AddRecord(dialog.Made());
    });
}

// The numbers of the record in hand, and when it was changed, are not those of the new one.
void MainWindow::CopyRecord() {
    if (!FinishEditing() || record_.Session() == nullptr) return;
    const EditSession::State state = record_.Session()->Now();
    Record copy;
    copy.leader = state.leader;
    for (const auto& [tag, content, given] : state.fields) {
        if (!NamesOneRecord(tag)) copy.fields.push_back({tag, content});
    }
    AddRecord(copy);
    statusBar()->showMessage(tr("A copy without 001, 003 and 005."));
}

// Comes last in the file, or in a new one, and is in hand then. A file without records has no room
// for one that follows them.
void MainWindow::AddRecord(const Record& record) {
    TakeRecord();
    Try([&] {
        const bool hasRoom =
            document_ != nullptr && (document_->IsStore() || document_->File().Size() > 0);
        if (!hasRoom) {
            CloseFile();
            TakeFile({});
            TakeDocument(std::make_unique<Document>());
        }
        const std::size_t index = document_->Add(record);
        ShowListing();
        ShowRecord(index);
        tabs_->setCurrentWidget(table_);
        table_->setFocus();
        CheckNow();
        KeepChanges();
    });
}

// All records, in the order that a person chose.
void MainWindow::ShowListing() {
    const QHeaderView* header = list_->horizontalHeader();
    if (document_->Listing().IsFiltered()) Filter({});
    if (isSorted_) Sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    listModel_->Renew();
    work_->start();
    WorkOn();
}

void MainWindow::DiscardNewRecord() {
    const bool isLast = current_ && *current_ + 1 == document_->File().Size();
    if (!isLast || !document_->File().IsNew(*current_)) {
        messages_->Say(
            tr("Only the record that was made last can be discarded, as long as it has "
               "not been saved."));
        return;
    }
    const std::size_t index = *current_;
    current_.reset();
    record_.Show(nullptr);
    document_->RemoveLast();
    TakeBackKept(index);
    if (index > 0) {
        ShowListing();
        ShowRecord(index - 1);
    } else if (document_->IsUntitled()) {
        CloseFile();
    } else {
        ShowListing();
        UpdateActions();
    }
}

void MainWindow::SaveRecordAsWorkform() {
    if (!FinishEditing() || record_.Session() == nullptr) return;
    const QString name =
        QInputDialog::getText(this, tr("Save as workform"), tr("Name, under which New offers it:"));
    if (name.trimmed().isEmpty()) return;
    Try([&] {
        const Record record = record_.Session()->InUtf8();
        std::vector<Place> leftOut;
        try {
            leftOut = SaveAsWorkform(record, name.trimmed().toStdString(), false);
        } catch (const UsageError& error) {
            const bool isThere = error.What().code == FaultCode::kWorkformThere;
            if (!isThere || !MayReplaceWorkform(name.trimmed())) throw;
            leftOut = SaveAsWorkform(record, name.trimmed().toStdString(), true);
        }
        SayWorkformSaved(name.trimmed(), leftOut);
    });
}

void MainWindow::SayWorkformSaved(const QString& name, const std::vector<Place>& leftOut) {
    QString text = tr("Saved as the workform “%1”. New records begin with its fields.").arg(name);
    QStringList places;
    for (const Place& place : leftOut) places.push_back(ToQt(PlaceText(place)));
    if (!places.isEmpty()) {
        text += u' ' + tr("A workform has no room for %1.").arg(places.join(QStringLiteral(", ")));
    }
    messages_->Say(text);
}

bool MainWindow::MayReplaceWorkform(const QString& name) {
    return QMessageBox::question(this, tr("Save as workform"),
                                 tr("There is a workform “%1” already. Replace it?").arg(name)) ==
           QMessageBox::Yes;
}

}  // namespace quillory
