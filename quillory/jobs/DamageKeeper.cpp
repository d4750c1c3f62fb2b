#include <quillory/jobs/DamageKeeper.h>

namespace quillory {

DamageKeeper::DamageKeeper(const std::string& path, Reporter& reporter) : reporter_(reporter) {
    if (!path.empty()) file_ = std::make_unique<Output>(path, OutputRole::kBeside);
}

bool DamageKeeper::Take(const Item& item) {
    if (Say(item, reporter_)) Keep(item);
    return item.kind == kItemRecord;
}

bool DamageKeeper::Say(const Item& item, Reporter& reporter) {
    const bool isDamaged = item.kind != kItemRecord || item.fault;
    if (isDamaged && !item.continues) reporter.SayFault(item);
    return isDamaged;
}

void DamageKeeper::Keep(const Item& item) {
    status_ = kStatusFindings;
    if ((item.kind != kItemRecord || item.isPartial) && file_) file_->Write(item.bytes);
}

void DamageKeeper::Complete() {
    if (file_) file_->Complete();
}

void DamageKeeper::Finish() {
    if (file_) file_->Finish();
}

}  // namespace quillory
