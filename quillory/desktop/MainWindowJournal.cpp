#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/exchange/Output.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/FileApart.h>
#include <quillory/jobs/SaveObstacle.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/store/HomeFolder.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <set>

// The window's part in keeping changes that are not saved.
namespace quillory {
namespace {

// Changes whose records are not there any more come into a file of their own. Result: its path.
std::string KeepApart(const std::vector<KeptChange>& changes) {
    std::string path = MakeFileApart(JournalFolder());
    std::string lines;
    for (const KeptChange& change : changes) lines += LinesOf(change.state);
    WriteOutput(path, lines);
    return path;
}

// False if somebody else changes the record, or has changed it.
bool CanHold(RecordSet& records, std::size_t record) {
    try {
        records.Hold(record);
        return true;
    } catch (const FileError&) {
        return false;
    }
}

}  // namespace

void MainWindow::MakeJournalTimer() {
    constexpr int kPause = 500;  // milliseconds
    keeping_ = new QTimer(this);
    keeping_->setInterval(kPause);
    connect(keeping_, &QTimer::timeout, this, &MainWindow::KeepChanges);
}

// Null if changes can't be kept, which is said.
std::unique_ptr<EditJournal> MainWindow::JournalFor(const QString& path) {
    if (!HasHomeFolder()) return nullptr;
    try {
        const bool isShared = path.isEmpty() || IsTheStore(path.toStdString());
        return std::make_unique<EditJournal>(JournalFolder(), path.toStdString(),
                                             isShared ? Writers::kMany : Writers::kOne);
    } catch (const FileError& error) {
        messages_->Warn(tr("Changes are not safe from a crash until they are saved: %1")
                            .arg(ToQt(error.what())));
        return nullptr;
    }
}

void MainWindow::KeepIn(std::unique_ptr<EditJournal> journal) {
    kept_.clear();
    isUnsafe_ = false;
    journal_ = std::move(journal);
    ShowLeftByOthers();
    keeping_->start();
}

// Whoever opens a file has it, unless another window does.
void MainWindow::TakeFile(const QString& path) {
    journal_.reset();
    KeepIn(JournalFor(path));
}

void MainWindow::WarnOfObstacle() {
    const std::string obstacle = ObstacleToSaving(document_->File().Path());
    if (obstacle.empty()) return;
    messages_->Warn(tr("This file can't be saved as it is: %1. What you change can be saved in "
                       "another one, with File > Save As.")
                        .arg(ToQt(obstacle)));
}

// The record as it would be if what is being typed were taken.
EditSession::State MainWindow::TypedState() {
    return record_.Try([this] {
        table_->TellTyped();
        lines_->TellTyped();
        coded_->TellTyped();
        copies_->TellTyped();
    });
}

// A record that is being changed is held, and what it is now is in the journal.
void MainWindow::KeepChanges() {
    if (!current_ || !record_.CanChange()) return;
    const RecordState typed = TypedState();
    const EditSession& session = *record_.Session();
    const bool isTouched = session.IsChanged() || typed != session.Now() || lines_->IsAhead();
    if (isTouched && !document_->MayBecome(*current_, typed)) return;
    Try([&] {
        KeepIfNews(ChangeInHand(typed, isTouched));
        if (!isTouched) document_->File().LetGo(*current_);
    });
}

KeptChange MainWindow::ChangeInHand(const RecordState& typed, bool isTouched) {
    KeptChange change;
    change.record = document_->File().NumberOf(*current_);
    change.isNew = document_->File().IsNew(*current_);
    change.state = typed;
    if (!change.isNew && isTouched) change.origin = document_->OriginOf(*current_);
    change.isTaken = !change.isNew && (!isTouched || SignOf(typed) == change.origin);
    return change;
}

void MainWindow::KeepIfNews(const KeptChange& change) {
    const std::uint64_t sign = SignOf(change.state);
    const auto known = kept_.find(*current_);
    const bool isKept = known == kept_.end() ? change.isTaken : known->second == sign;
    if (isKept) return;
    if (Keep(change)) {
        kept_[*current_] = sign;
    } else {
        kept_.erase(*current_);
    }
}

// False if it is not on the disk now, although it should be.
bool MainWindow::Keep(const KeptChange& change) {
    if (journal_ == nullptr) return true;
    try {
        journal_->Write(change);
        isUnsafe_ = false;
        return true;
    } catch (const FileError& error) {
        if (!isUnsafe_) {
            messages_->Warn(tr("Your changes are not safe from a crash until you save them: %1")
                                .arg(ToQt(error.what())));
        }
        isUnsafe_ = true;
        return false;
    }
}

// A new record is not there any more.
void MainWindow::TakeBackKept(std::size_t record) {
    if (kept_.erase(record) == 0) return;
    KeptChange change;
    change.record = document_->File().NumberOf(record);
    change.isNew = true;
    change.isTaken = true;
    Keep(change);
}

// Nothing is left to be saved.
void MainWindow::ForgetChanges() {
    kept_.clear();
    if (journal_ != nullptr) journal_->Clear();
}

bool MainWindow::AreChangesKept() const {
    if (journal_ == nullptr || !journal_->IsOurs() || isUnsafe_) return false;
    const RecordSet& records = document_->File();
    for (std::size_t i = 0; i < records.Size(); ++i) {
        if (records.IsChanged(i) && !kept_.contains(i)) return false;
    }
    return true;
}

// Another program has written the file: what was changed here is taken up as after a crash.
void MainWindow::ReadUnderChanges() {
    Try([this] {
        auto opened = std::make_unique<Document>(document_->File().Path());
        kept_.clear();
        GoOnWith(std::move(opened));
        journal_->Rewrite(TakeUp(journal_->Left()));
    });
}

void MainWindow::OfferLeft() {
    if (journal_ == nullptr || !journal_->IsOurs()) return;
    const std::vector<KeptChange> left = journal_->Left();
    const bool isWanted = !left.empty() && WantsLeft(left.size(), document_->File().Path());
    if (isWanted) {
        journal_->Rewrite(TakeUp(left));
    } else {
        journal_->DropLeft();
    }
}

bool MainWindow::WantsLeft(std::size_t count, const std::string& path) {
    const QString name = path.empty() ? tr("new records") : ToQt(path);
    QMessageBox box(QMessageBox::Question, tr("Changes that were not saved"),
                    tr("Take up the changes of %1?\nThe program ended before they were saved. "
                       "Changed records: %L2.")
                        .arg(name)
                        .arg(count),
                    QMessageBox::NoButton, this);
    QPushButton* take = box.addButton(tr("&Take Up"), QMessageBox::AcceptRole);
    box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    box.setDefaultButton(take);
    box.setEscapeButton(take);
    box.exec();
    return box.clickedButton() == take;
}

// Result: its place in the list; nothing if the record is another one now, or is being changed
// elsewhere.
std::optional<std::size_t> MainWindow::TakeUp(KeptChange& change) {
    RecordSet& records = document_->File();
    const auto record =
        change.isNew ? document_->Add(RecordOf(change.state)) : records.IndexOf(change.record);
    if (!record) return std::nullopt;
    if (!change.isNew) {
        EditSession* session = records.IsNew(*record) ? nullptr : document_->SessionOf(*record);
        if (session == nullptr || records.IsChanged(*record)) return std::nullopt;
        if (document_->OriginOf(*record) != change.origin) return std::nullopt;
        if (!CanHold(records, *record)) return std::nullopt;
        session->TakeUp(change.state);
        document_->Take(*record);
    }
    change.record = records.NumberOf(*record);
    kept_[*record] = SignOf(change.state);
    return record;
}

// The first record of them is shown. Result: those that could be taken up.
std::vector<KeptChange> MainWindow::TakeUp(std::vector<KeptChange> left) {
    while (document_->File().FindMore(1)) {
    }
    std::set<std::size_t> taken;
    const auto apart =
        std::stable_partition(left.begin(), left.end(), [this, &taken](KeptChange& change) {
            const auto record = TakeUp(change);
            if (record) taken.insert(*record);
            return record.has_value();
        });
    const std::vector<KeptChange> others(apart, left.end());
    left.erase(apart, left.end());
    ShowListing();
    if (!taken.empty()) ShowRecord(*taken.begin());
    SayWhatIsApart(taken.size(), others);
    return left;
}

void MainWindow::SayWhatIsApart(std::size_t taken, const std::vector<KeptChange>& others) {
    QString said = tr("Changes were taken up, and are not saved yet: %L1.").arg(taken);
    if (!others.empty()) {
        said += u' ' + tr("Records that are not as they were any more: %L1. Their changes are in "
                          "%2.")
                           .arg(others.size())
                           .arg(ToQt(KeepApart(others)));
    }
    messages_->Say(said);
}

// Once for what is left; closed, it comes again when the store is opened next.
void MainWindow::ShowLeftByOthers() {
    const bool isLeft = journal_ != nullptr && journal_->IsMoreLeft();
    if (!isLeft) left_->hide();
    if (isLeft && !isLeftOffered_) {
        left_->Offer(tr("Another window ended before its changes were saved. They are kept, and "
                        "can be taken up here."),
                     tr("Take &Up"));
    }
    isLeftOffered_ = isLeft;
}

void MainWindow::TakeUpLeftByOthers() {
    if (journal_ == nullptr || !FinishEditing()) return;
    TakeRecord();
    Try([this] {
        const std::vector<KeptChange> left = journal_->TakeMoreLeft();
        if (left.empty()) return messages_->Say(tr("Another window has taken these changes up."));
        journal_->Adopt(TakeUp(left));
    });
    ShowLeftByOthers();
}

void MainWindow::OfferNewRecordsLeft() {
    if (document_ != nullptr) return;
    auto journal = JournalFor({});
    if (journal == nullptr || journal->Left().empty()) return;
    Try([&] {
        if (WantsLeft(journal->Left().size(), {})) {
            TakeDocument(std::make_unique<Document>());
            KeepIn(std::move(journal));
            journal_->Rewrite(TakeUp(journal_->Left()));
        } else {
            journal->DropLeft();
        }
    });
}

}  // namespace quillory
