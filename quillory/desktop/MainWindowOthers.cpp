#include <quillory/desktop/Document.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/FileApart.h>

#include <QApplication>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTimer>
#include <utility>

// The window's part in what other windows do to the records of the store.
namespace quillory {
namespace {

// A dialog, a menu or a drag knows the record as it is.
bool IsInTheMiddle() {
    return QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr ||
           QGuiApplication::mouseButtons() != Qt::NoButton;
}

}  // namespace

// Who else changes the record in hand; empty for nobody.
QString MainWindow::HolderInHand() {
    QString holder;
    if (document_ != nullptr && current_) {
        Try([&] { holder = ToQt(document_->File().HolderOf(*current_)); });
    }
    return holder;
}

void MainWindow::FollowOthers() {
    if (document_ == nullptr || !document_->IsStore() || IsInTheMiddle()) return;
    KeepChanges();
    Try([this] {
        const std::size_t before = document_->File().Size();
        if (document_->File().Follow()) ShowSavedByOthers();
        ShowAdded(before);
        const bool isHeld = !HolderInHand().isEmpty();
        if (current_ && isHeld != record_.IsReadOnly()) ShowAgain();
        RefreshHolders();
        ShowLeftByOthers();
    });
}

// Sessions with changes stay: nobody else has saved their records, but for programs that know no
// locks, and then they can't be saved here.
void MainWindow::ShowSavedByOthers() {
    for (const std::size_t record : document_->Outdated()) {
        if (record == current_) {
            ReadAgainTelling();
        } else {
            document_->Forget(record);
        }
    }
    listModel_->RefreshAll();
}

void MainWindow::ReadAgainTelling() {
    const EditSession& session = *record_.Session();
    const bool hasSteps = session.CanUndo() || session.CanRedo();
    ReadAgain();
    const QString said = tr("Another program has saved this record: it is shown as it is now.");
    if (hasSteps) {
        messages_->Say(said + u' ' + tr("Your own steps before that can't be undone any more."));
    } else {
        SayShortly(said);
    }
}

// Records that came last while there were so many.
void MainWindow::ShowAdded(std::size_t before) {
    if (document_->File().Size() <= before) return;
    const QHeaderView* header = list_->horizontalHeader();
    if (isSorted_) {
        Sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    } else {
        listModel_->Grow();
        work_->start();
    }
    ShowCounts();
}

// Of the rows that are seen.
void MainWindow::RefreshHolders() {
    const int first = list_->rowAt(0);
    if (first < 0) return;
    const int last = list_->rowAt(list_->viewport()->height() - 1);
    listModel_->RefreshHolders(first, last < 0 ? listModel_->rowCount() - 1 : last);
}

// The record in hand as it is now.
void MainWindow::ReadAgain() {
    const auto former = document_->Forget(*current_);  // the views know it until the next line
    ShowAgain();
}

// At the same place.
void MainWindow::ShowAgain() {
    const Place place = table_->CurrentPlace();
    const bool hasOpenText = table_->isAncestorOf(QApplication::focusWidget());
    EditSession* session = nullptr;
    Try([&] { session = document_->SessionOf(*current_); });
    record_.Show(session, !HolderInHand().isEmpty());
    table_->setCurrentIndex(table_->Model().IndexOf(place));
    if (hasOpenText) table_->setFocus();
    listModel_->Refresh(*current_);
    ShowHold();
    ShowHelp();
    UpdateActions();
}

// A step came too late for its record. What was typed is kept at once, and the record is shown as
// it is when the step has returned.
void MainWindow::KeepRefused(std::size_t record, const RecordState& wanted, const QString& why) {
    Try([&] {
        if (refused_.empty()) refusedPath_ = MakeFileApart(JournalFolder());
        WriteRefused(record, wanted);
        if (refused_.size() > 1) return;
        const Document* document = document_.get();
        QTimer::singleShot(0, this, [this, document, why] { ShowRefused(document, why); });
    });
}

void MainWindow::WriteRefused(std::size_t record, const RecordState& wanted) {
    const bool isText = record == current_ && lines_->IsAhead();
    refused_[record] = isText ? TextIn(lines_->Box()).toStdString() + "\n\n" : LinesOf(wanted);
    std::string lines;
    for (const auto& [number, text] : refused_) lines += text;
    WriteOutput(refusedPath_, lines);
}

// Keys may have come since the step was refused.
void MainWindow::KeepTypedSince() {
    if (!current_ || !refused_.contains(*current_) || record_.Session() == nullptr) return;
    const RecordState typed = TypedState();
    const bool isTyped = typed != record_.Session()->Now() || lines_->IsAhead();
    if (isTyped) Try([&] { WriteRefused(*current_, typed); });
}

void MainWindow::ShowRefused(const Document* document, const QString& why) {
    if (document == document_.get()) KeepTypedSince();
    const auto refused = std::exchange(refused_, {});
    if (document == document_.get()) {
        for (const auto& [record, lines] : refused) {
            if (record == current_) {
                ReadAgain();
            } else {
                document_->Forget(record);
            }
        }
    }
    messages_->Warn(tr("%1. The record is shown as it is now; what it would have become here is in "
                       "%2.")
                        .arg(why, ToQt(refusedPath_)));
}

}  // namespace quillory
