#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/exchange/Mrk.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/SaveObstacle.h>
#include <quillory/store/HomeFolder.h>

#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

// The window's part in keeping changes that are not saved.
namespace quillory {
namespace {

std::filesystem::path JournalFolder() {
    return HomeFolder() / "journals";
}

Record ViewOf(const EditSession::State& state) {
    Record record;
    record.leader = state.leader;
    for (const auto& [tag, content, given] : state.fields) record.fields.push_back({tag, content});
    return record;
}

// Changes whose records are not there any more come into a file of their own. Result: its path.
std::string KeepApart(const std::vector<KeptChange>& changes) {
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    std::string path = (JournalFolder() / ("kept-" + now.toStdString() + ".mrk")).string();
    std::string lines;
    for (const KeptChange& change : changes) AppendMrk(ViewOf(change.state), lines);
    WriteOutput(path, lines);
    return path;
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
        return std::make_unique<EditJournal>(JournalFolder(), path.toStdString());
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
    if (journal_ != nullptr) keeping_->start();
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

void MainWindow::KeepChanges() {
    if (journal_ == nullptr || !current_ || record_.Session() == nullptr) return;
    KeptChange change;
    change.record = document_->File().NumberOf(*current_);
    change.isNew = document_->File().IsNew(*current_);
    change.state = TypedState();
    Try([&] {
        if (!change.isNew) change.origin = document_->OriginOf(*current_);
        const std::uint64_t sign = SignOf(change.state);
        change.isTaken = !change.isNew && sign == change.origin;
        const auto known = kept_.find(*current_);
        const bool isKept = known == kept_.end() ? change.isTaken : known->second == sign;
        if (isKept) return;
        Keep(change);
        kept_[*current_] = sign;
    });
}

void MainWindow::Keep(const KeptChange& change) {
    try {
        journal_->Write(change);
        isUnsafe_ = false;
    } catch (const FileError& error) {
        if (!isUnsafe_) {
            messages_->Warn(tr("Your changes are not safe from a crash until you save them: %1")
                                .arg(ToQt(error.what())));
        }
        isUnsafe_ = true;
    }
}

// A new record is not there any more.
void MainWindow::TakeBackKept(std::size_t record) {
    if (journal_ == nullptr || kept_.erase(record) == 0) return;
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

void MainWindow::OfferLeft() {
    if (journal_ == nullptr || !journal_->IsOurs()) return;
    const std::vector<KeptChange> left = journal_->Left();
    const bool isWanted = !left.empty() && WantsLeft(left.size(), document_->File().Path());
    if (isWanted) {
        TakeUp(left);
    } else {
        journal_->Clear();
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

// False if the record is another one now.
bool MainWindow::TakeUp(KeptChange& change) {
    RecordSet& records = document_->File();
    const auto record =
        change.isNew ? document_->Add(ViewOf(change.state)) : records.IndexOf(change.record);
    if (!record) return false;
    if (!change.isNew) {
        EditSession* session = records.IsNew(*record) ? nullptr : document_->SessionOf(*record);
        if (session == nullptr || document_->OriginOf(*record) != change.origin) return false;
        session->TakeUp(change.state);
        document_->Take(*record);
    }
    change.record = records.NumberOf(*record);
    kept_[*record] = SignOf(change.state);
    return true;
}

void MainWindow::TakeUp(std::vector<KeptChange> left) {
    while (document_->File().FindMore(1)) {
    }
    const auto apart = std::stable_partition(left.begin(), left.end(),
                                             [this](KeptChange& change) { return TakeUp(change); });
    const std::vector<KeptChange> others(apart, left.end());
    left.erase(apart, left.end());
    QString said = tr("Changes were taken up, and are not saved yet: %L1.").arg(left.size());
    if (!others.empty()) {
        said += u' ' + tr("Records that are not as they were any more: %L1. Their changes are in "
                          "%2.")
                           .arg(others.size())
                           .arg(ToQt(KeepApart(others)));
    }
    journal_->Rewrite(left);
    ShowListing();
    if (!kept_.empty()) ShowRecord(kept_.begin()->first);
    messages_->Say(said);
}

void MainWindow::OfferNewRecordsLeft() {
    if (!HasHomeFolder() || document_ != nullptr) return;
    Try([this] {
        for (const std::filesystem::path& journal : NewRecordsLeft(JournalFolder())) {
            const std::vector<KeptChange> left = ReadJournal(journal);
            const bool isWanted = !left.empty() && WantsLeft(left.size(), {});
            for (const KeptChange& change : left) {
                if (isWanted) AddRecord(ViewOf(change.state));
            }
            std::error_code ignored;
            std::filesystem::remove(journal, ignored);
        }
    });
}

}  // namespace quillory
