#include <quillory/desktop/CollectedMessages.h>
#include <quillory/desktop/Document.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/RecordFile.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/jobs/StoredRecords.h>
#include <quillory/jobs/WriteRecords.h>
#include <quillory/store/HomeFolder.h>

namespace quillory {
namespace {

std::unique_ptr<RecordSet> RecordsAt(const std::string& path) {
    if (HasHomeFolder() && IsTheStore(path)) return std::make_unique<StoredRecords>();
    return std::make_unique<RecordFile>(path);
}

}  // namespace

Document::Document(const std::string& path) : file_(RecordsAt(path)), listing_(*file_) {}

Document::Document() : file_(std::make_unique<RecordFile>()), listing_(*file_) {}

EditSession* Document::SessionOf(std::size_t record) {
    if (file_->IsDamaged(record)) return nullptr;
    const auto known = sessions_.find(record);
    if (known != sessions_.end()) return known->second.get();
    file_->ReadToEdit(record, item_);
    if (file_->IsDamaged(record)) return nullptr;
    auto session = std::make_unique<EditSession>(item_.record, CharsetOfFile());
    // Other programs may write the file before it is changed here.
    if (!file_->IsChanged(record)) origins_.try_emplace(record, SignOf(session->Now()));
    session->SetGate([this, record](const RecordState& now) { return MayBecome(record, now); });
    return sessions_.emplace(record, std::move(session)).first->second.get();
}

bool Document::MayBecome(std::size_t record, const RecordState& wanted) {
    try {
        file_->Hold(record);
        return true;
    } catch (const FileError& error) {
        if (refused_ != nullptr) refused_(record, wanted, error.what());
        return false;
    }
}

Charset Document::CharsetOfFile() const {
    return file_->GetForm().isAlwaysUtf8 ? kCharsetUtf8 : kCharsetAuto;
}

std::uint64_t Document::OriginOf(std::size_t record) {
    const auto known = origins_.find(record);
    if (known != origins_.end()) return known->second;
    Item item;
    file_->ReadAsSaved(record, item);
    return origins_[record] = SignOf(EditSession(item.record, CharsetOfFile()).Now());
}

Losses Document::Take(std::size_t record) {
    Losses losses;
    const auto found = sessions_.find(record);
    if (found == sessions_.end()) return losses;
    if (!found->second->IsChanged()) {
        file_->Discard(record);
        return losses;
    }
    Record changed;
    found->second->Give(changed, losses);
    file_->Replace(record, changed);
    return losses;
}

void Document::Leave(std::size_t record) {
    const auto found = sessions_.find(record);
    if (found == sessions_.end()) return;
    const EditSession& session = *found->second;
    if (session.CanUndo() || session.CanRedo()) return;
    sessions_.erase(found);
    origins_.erase(record);
}

std::vector<std::size_t> Document::Outdated() const {
    std::vector<std::size_t> records;
    for (const auto& [record, session] : sessions_) {
        if (!session->IsChanged() && file_->IsOutdated(record)) records.push_back(record);
    }
    return records;
}

std::unique_ptr<EditSession> Document::Forget(std::size_t record) {
    origins_.erase(record);
    file_->LetGo(record);
    auto session = sessions_.extract(record);
    return session.empty() ? nullptr : std::move(session.mapped());
}

// Each record says itself what it is in; the last one stands for those that come after it.
bool Document::IsMarc8() {
    if (file_->GetForm().isAlwaysUtf8 || file_->Size() == 0) return false;
    file_->Read(file_->Size() - 1, item_);
    const std::string_view leader = item_.record.leader;
    return leader.size() > zorby::kLeaderCharacterCode &&
           leader[zorby::kLeaderCharacterCode] != 'a';
}

std::size_t Document::Add(const Record& record) {
    while (file_->FindMore(1)) {
    }
    EditSession::State state{std::string(record.leader), {}};
    state.leader.resize(zorby::kLeaderSize, ' ');
    state.leader[zorby::kLeaderCharacterCode] = IsMarc8() ? ' ' : 'a';
    for (const auto& [tag, content] : record.fields) {
        state.fields.push_back({std::string(tag), std::string(content), -1});
    }
    Record empty;
    empty.leader = state.leader;
    EditSession session(empty);
    session.Become(state);
    Record given;
    Losses unused;
    session.Give(given, unused);
    return file_->Add(given);
}

void Document::RemoveLast() {
    sessions_.erase(file_->Size() - 1);
    file_->RemoveLast();
}

std::optional<Document::Obstacle> Document::WhatStopsSaving() {
    const bool isIso2709 = file_->GetForm().name == Forms().front().name;
    for (const auto& [record, session] : sessions_) {
        if (!session->IsChanged()) continue;
        if (const auto fault = session->WhatIsWrong(isIso2709)) return Obstacle{record, *fault};
    }
    return std::nullopt;
}

void Document::Save() {
    file_->Save();
    origins_.clear();
    for (const auto& [record, session] : sessions_) session->MarkSaved();
}

std::string Document::SaveAs(const std::string& path) {
    CheckNotOurs(path);
    const ItemSource source = [this](const auto& take) {
        Item item;
        bool goesOn = true;
        for (std::size_t i = 0; goesOn && i < file_->Size(); ++i) {
            file_->Read(i, item);
            goesOn = take(item);
        }
        return kStatusWell;
    };
    CollectedMessages messages;
    Reporter reporter(messages, {.quiet = true});
    reporter.BeginFile(file_->Path());
    const bool isUtf8 = file_->GetForm().isAlwaysUtf8;
    OutputOptions output;
    output.output = path;
    WriteItems(source, isUtf8 ? kCharsetUtf8 : kCharsetAuto, output, reporter);
    reporter.EndFile();
    return messages.text;
}

}  // namespace quillory
