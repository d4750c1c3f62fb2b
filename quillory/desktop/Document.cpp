#include <quillory/desktop/Document.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {
namespace {

class CollectedMessages : public JobPort {
public:
    void Say(const Message& message) override { text += MessageLine(message) + '\n'; }

    std::string text;
};

}  // namespace

EditSession* Document::SessionOf(std::size_t record) {
    if (file_.IsDamaged(record)) return nullptr;
    auto& session = sessions_[record];
    if (!session) {
        file_.Read(record, item_);
        const Charset charset = file_.GetForm().isAlwaysUtf8 ? kCharsetUtf8 : kCharsetAuto;
        session = std::make_unique<EditSession>(item_.record, charset);
    }
    return session.get();
}

Losses Document::Take(std::size_t record) {
    Losses losses;
    const auto found = sessions_.find(record);
    if (found == sessions_.end()) return losses;
    if (!found->second->IsChanged()) {
        file_.Discard(record);
        return losses;
    }
    Record changed;
    found->second->Give(changed, losses);
    file_.Replace(record, changed);
    return losses;
}

void Document::Leave(std::size_t record) {
    const auto found = sessions_.find(record);
    if (found == sessions_.end()) return;
    const EditSession& session = *found->second;
    if (!session.CanUndo() && !session.CanRedo()) sessions_.erase(found);
}

std::optional<Document::Obstacle> Document::WhatStopsSaving() {
    const bool isIso2709 = file_.GetForm().name == Forms().front().name;
    for (const auto& [record, session] : sessions_) {
        if (!session->IsChanged()) continue;
        if (const auto fault = session->WhatIsWrong(isIso2709)) return Obstacle{record, *fault};
    }
    return std::nullopt;
}

void Document::Save() {
    file_.Save();
    for (const auto& [record, session] : sessions_) session->MarkSaved();
}

std::string Document::SaveAs(const std::string& path) {
    const ItemSource source = [this](const auto& take) {
        Item item;
        bool goesOn = true;
        for (std::size_t i = 0; goesOn && i < file_.Size(); ++i) {
            file_.Read(i, item);
            goesOn = take(item);
        }
        return kStatusWell;
    };
    CollectedMessages messages;
    Reporter reporter(messages, {.quiet = true});
    reporter.BeginFile(file_.Path());
    const bool isUtf8 = file_.GetForm().isAlwaysUtf8;
    OutputOptions output;
    output.output = path;
    WriteItems(source, isUtf8 ? kCharsetUtf8 : kCharsetAuto, output, reporter);
    reporter.EndFile();
    return messages.text;
}

}  // namespace quillory
