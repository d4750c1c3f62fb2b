#include <quillory/desktop/Document.h>
#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/Texts.h>
#include <quillory/jobs/EditJournal.h>

#include <QStatusBar>
#include <QTimer>

// The window's part in files that another window has open.
namespace quillory {

void MainWindow::MakeHoldBar(QWidget* parent) {
    constexpr int kPause = 1000;  // milliseconds
    hold_ = new HoldBar(parent);
    waiting_ = new QTimer(this);
    waiting_->setInterval(kPause);
    connect(waiting_, &QTimer::timeout, this, [this] {
        FollowOthers();
        ShowHold();
    });
    connect(hold_, &HoldBar::TakeAsked, this, &MainWindow::TakeOver);
    connect(hold_, &HoldBar::CopyAsked, this, &MainWindow::ChooseTarget);
}

bool MainWindow::IsHeldByAnother() const {
    return journal_ != nullptr && !journal_->IsOurs();
}

// Asks again from time to time, so that a person knows when the file, or the record, is free.
void MainWindow::ShowHold() {
    const bool isStore = document_ != nullptr && document_->IsStore();
    if (!isStore && !IsHeldByAnother()) {
        waiting_->stop();
        hold_->hide();
        return;
    }
    if (!waiting_->isActive()) waiting_->start();
    if (isStore) {
        ShowRecordHold();
    } else {
        ShowFileHold();
    }
}

void MainWindow::ShowFileHold() {
    if (journal_->IsFree()) {
        hold_->ShowFree(
            tr("This file is open in no other window any more. Take it over to change "
               "it: it is read again then."));
    } else {
        hold_->ShowHeld(tr("This file is open in another window: %1. Here it can be read, and "
                           "saved under another name to be changed. It can be taken over when "
                           "that window has closed it.")
                            .arg(ToQt(journal_->Holder())));
    }
}

void MainWindow::ShowRecordHold() {
    const QString holder = HolderInHand();
    if (holder.isEmpty()) return hold_->hide();
    hold_->ShowPart(tr("Record %1 is being changed in another window: %2. Here it can be read, and "
                       "changed when that window has saved it or left it as it was.")
                        .arg(document_->File().NumberOf(*current_))
                        .arg(holder));
}

// The other window may have changed the file, and may have left changes that it did not save.
void MainWindow::TakeOver() {
    if (!IsHeldByAnother()) return;
    Try([this] {
        if (!journal_->Take()) {
            messages_->Warn(
                tr("Another window has taken the file: %1.").arg(ToQt(journal_->Holder())));
            return;
        }
        GoOnWith(std::make_unique<Document>(document_->File().Path()));
        messages_->Say(tr("The file is yours now, and was read again."));
        WarnOfObstacle();
        OfferLeft();
    });
    ShowHold();
}

bool MainWindow::RefuseHeld() {
    if (!IsHeldByAnother()) return false;
    messages_->Warn(
        tr("Nothing was saved, and nothing was changed: this file is open in another "
           "window. File > Save As makes a copy."));
    return true;
}

void MainWindow::RefuseTarget(const EditJournal& journal) {
    messages_->Warn(tr("Nothing was saved: that file is open in another window, %1. Choose "
                       "another name.")
                        .arg(ToQt(journal.Holder())));
}

}  // namespace quillory
