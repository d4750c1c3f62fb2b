#include <quillory/desktop/Desk.h>
#include <quillory/desktop/DeskSettings.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/Texts.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/Library.h>
#include <quillory/store/HomeFolder.h>

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QRegularExpression>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <filesystem>

namespace quillory {
namespace {

// "MARC 21 XML (*.xml *.marcxml)", a line for each form.
QString FormFilters() {
    QStringList filters;
    for (const Form& form : Forms()) {
        QString endings = ToQt(form.endings);
        endings.replace(u'.', QStringLiteral("*."));
        filters << QStringLiteral("%1 (%2)").arg(ToQt(form.words), endings);
    }
    return filters.join(QStringLiteral(";;"));
}

// The first ending of such a line, which a name without one gets.
QString EndingOf(const QString& filter) {
    return filter.section(QStringLiteral("*."), 1, 1).section(QRegularExpression("[ )]"), 0, 0);
}

std::size_t DamagedBefore(const RecordSet& records, std::size_t record) {
    std::size_t damaged = 0;
    for (std::size_t i = 0; i < record; ++i) {
        if (records.IsDamaged(i)) ++damaged;
    }
    return damaged;
}

}  // namespace

bool MainWindow::Open(const QString& path) {
    bool isOpen = false;
    Try([&] {
        auto opened = std::make_unique<Document>(path.toStdString());
        opened->Listing().Work(1);
        if (!CloseFile()) return;
        // What was saved before it was closed may be the same file.
        if (opened->File().HasChangedOnDisk()) {
            opened = std::make_unique<Document>(path.toStdString());
        }
        TakeFile(path);
        TakeDocument(std::move(opened));
        settings_.AddRecentFile(QFileInfo(path).absoluteFilePath());
        work_->start();
        WorkOn();
        if (document_->File().IsWhole() && document_->File().Size() == 0 && !document_->IsStore()) {
            messages_->Warn(tr("%1: there are no records in this file").arg(path));
        }
        WarnOfObstacle();
        OfferLeft();
        list_->setFocus();
        isOpen = true;
    });
    return isOpen;
}

void MainWindow::TakeDocument(std::unique_ptr<Document> document) {
    document_ = std::move(document);
    document_->WhenRefused(
        [this](std::size_t record, const RecordState& wanted, const std::string& why) {
            KeepRefused(record, wanted, ToQt(why));
        });
    FollowRules();
    listModel_->SetDocument(document_.get());
    ShowFile();
    ShowHold();
}

// Records are held against the rules as the file of settings beside them has these.
void MainWindow::FollowRules() {
    try {
        desk_.FollowRulesFor(document_->File().Path());
    } catch (const FaultError& error) {
        messages_->Warn(tr("%1. Until that is mended and the file is opened again, records are "
                           "checked without these settings.")
                            .arg(ToQt(error.what())));
    }
}

bool MainWindow::CloseFile() {
    if (document_ == nullptr) return true;
    if (!FinishEditing()) return false;
    TakeRecord();
    if (!MayLoseChanges(tr("Save the changes before the file is closed?"))) return false;
    ForgetChanges();
    keeping_->stop();
    journal_.reset();
    ShowLeftByOthers();
    work_->stop();
    checks_->stop();
    messages_->hide();
    listModel_->SetDocument(nullptr);
    current_.reset();
    record_.Show(nullptr);
    const QSignalBlocker quiet(filter_);
    filter_->clear();
    isSorted_ = false;
    const QSignalBlocker quietHeader(list_->horizontalHeader());
    list_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    document_.reset();
    ShowFile();
    ShowHold();
    return true;
}

bool MainWindow::MayLoseChanges(const QString& question) {
    if (!document_->IsChanged()) return true;
    const auto answer = QMessageBox::question(
        this, tr("Changes that are not saved"),
        tr("Changed records: %L1.").arg(document_->File().Changes()) + u'\n' + question,
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save) return Save();
    return answer == QMessageBox::Discard;
}

void MainWindow::ChooseFile() {
    const QString folder = QFileInfo(settings_.RecentFiles().value(0)).absolutePath();
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open a file of records"), folder,
        tr("Records (*.mrc *.marc *.iso *.iso2709 *.mrk *.mrk8 *.lif *.001 *.xml *.marcxml *.json "
           "*.jsonl *.ndjson *.gz);;All files (*)"));
    if (!path.isEmpty()) Open(path);
}

// A copy, which a person may change at will.
void MainWindow::OpenSamples() {
    Try([this] {
        namespace fs = std::filesystem;
        const fs::path copy = HomeFolder() / "samples.mrk";
        std::error_code error;
        if (!fs::exists(copy)) {
            fs::create_directories(copy.parent_path(), error);
            fs::copy_file(DataFile("samples.mrk"), copy, error);
        }
        if (error) throw FileError(copy.string() + ": " + error.message());
        Open(ToQt(copy.string()));
    });
}

void MainWindow::Reload() {
    if (document_ == nullptr || document_->IsUntitled() || !FinishEditing()) return;
    TakeRecord();
    const bool isReplaced = document_->IsChanged() && document_->File().HasChangedOnDisk();
    if (isReplaced && AreChangesKept()) return ReadUnderChanges();
    const QString path = ToQt(document_->File().Path());
    const auto record = current_;
    if (!Open(path)) return;
    while (IsWorking() && record && *record >= document_->File().Size()) WorkOn();
    if (record) ShowRecord(*record);
}

bool MainWindow::Save() {
    if (document_ == nullptr || !FinishEditing()) return false;
    if (document_->IsUntitled()) {
        ChooseTarget();
        return document_ != nullptr && !document_->IsUntitled();
    }
    if (RefuseHeld()) return false;
    TakeRecord();
    if (const QString change = ChangeOnDisk(); !change.isEmpty()) {
        messages_->Warn(tr("Nothing was saved. %1").arg(change));
        return false;
    }
    if (const auto obstacle = document_->WhatStopsSaving()) {
        ShowRecord(obstacle->record);
        const RecordSet& records = document_->File();
        const QString name = records.IsNew(obstacle->record)
                                 ? tr("the new record in hand")
                                 : tr("record %1").arg(records.NumberOf(obstacle->record));
        messages_->Warn(tr("Nothing was saved: %1 can't be written. %2")
                            .arg(name, ToQt(FaultText(obstacle->fault))));
        return false;
    }
    bool isSaved = false;
    Try([&] {
        while (document_->File().FindMore(1)) {
        }
        const std::size_t before = document_->File().Size();
        document_->Save();
        ForgetChanges();
        listModel_->RefreshAll();
        ShowAdded(before);
        messages_->hide();
        SayShortly(tr("Saved."));
        isSaved = true;
    });
    CheckNow();
    ShowCounts();
    return isSaved;
}

void MainWindow::ChooseTarget() {
    if (document_ == nullptr) return;
    const QString now = document_->IsUntitled() ? tr("new records.mrc")
                        : document_->IsStore()  ? tr("store.mrc")
                                                : ToQt(document_->File().Path());
    QFileDialog dialog(this, tr("Save as"), QFileInfo(now).path(), FormFilters());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(QFileInfo(now).fileName());
    const auto follow = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(EndingOf(filter));
    };
    connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow(dialog.selectedNameFilter());
    if (dialog.exec() == QDialog::Accepted) SaveAs(dialog.selectedFiles().value(0));
}

// The form is that of the name. The window goes on with the new file.
bool MainWindow::SaveAs(const QString& path) {
    if (document_ == nullptr || !FinishEditing()) return false;
    const QFileInfo target(path);
    const QFileInfo now(document_->IsUntitled() ? QString() : ToQt(document_->File().Path()));
    if (target.exists() && target == now) return Save();
    // The file was removed: this window has its name.
    const bool isOwnName = target.absoluteFilePath() == now.absoluteFilePath();
    TakeRecord();
    bool isSaved = false;
    Try([&] {
        while (document_->File().FindMore(1)) {
        }
        auto journal = isOwnName ? nullptr : JournalFor(path);
        if (journal != nullptr && !journal->IsOurs()) return RefuseTarget(*journal);
        const QString said = ToQt(document_->SaveAs(path.toStdString())).trimmed();
        auto written = std::make_unique<Document>(path.toStdString());
        ForgetChanges();
        if (!isOwnName) KeepIn(std::move(journal));
        if (current_) *current_ -= DamagedBefore(document_->File(), *current_);
        GoOnWith(std::move(written));
        settings_.AddRecentFile(QFileInfo(path).absoluteFilePath());
        SayShortly(tr("Saved as %1.").arg(path));
        if (!said.isEmpty()) messages_->Say(said);
        isSaved = true;
    });
    return isSaved;
}

// Another file, or the same one read again, at the record that was in hand, in a list of what was
// looked for, in the order that a person chose.
void MainWindow::GoOnWith(std::unique_ptr<Document> document) {
    const auto record = current_;
    Try([&] { document->Listing().Filter(filter_->text().toStdString()); });
    const QHeaderView* header = list_->horizontalHeader();
    if (isSorted_) {
        document->Listing().Sort(static_cast<ListColumn>(header->sortIndicatorSection()),
                                 header->sortIndicatorOrder() == Qt::DescendingOrder);
    }
    listModel_->SetDocument(nullptr);
    current_.reset();
    record_.Show(nullptr);
    TakeDocument(std::move(document));
    work_->start();
    while (IsWorking() && record && *record >= document_->File().Size()) WorkOn();
    if (record) ShowRecord(*record);
}

// What another program did to the file, and what to do about it; empty for nothing.
QString MainWindow::ChangeOnDisk() const {
    if (document_ == nullptr || !document_->File().HasChangedOnDisk()) return {};
    if (!QFileInfo::exists(ToQt(document_->File().Path()))) {
        return tr(
            "This file is not there any more. File > Save As keeps its records, with your "
            "changes, in another one.");
    }
    if (!AreChangesKept()) {
        return tr(
            "Another program has changed this file. File > Save As keeps your changes in another "
            "one; File > Reload reads it again without them.");
    }
    return tr(
        "Another program has changed this file. File > Reload reads it again and takes up your "
        "changes; File > Save As keeps them in another one.");
}

void MainWindow::NoteChangeOnDisk() {
    const QString change = ChangeOnDisk();
    if (!change.isEmpty()) messages_->Warn(change);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    settings_.SetState(QStringLiteral("window/geometry"), saveGeometry());
    settings_.SetState(QStringLiteral("window/panes"), panes_->saveState());
    event->setAccepted(CloseFile());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const auto urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.front().isLocalFile()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const auto urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.front().isLocalFile()) Open(urls.front().toLocalFile());
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) NoteChangeOnDisk();
}

}  // namespace quillory
