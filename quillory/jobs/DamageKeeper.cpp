#include <quillory/jobs/DamageKeeper.h>

namespace quillory {

DamageKeeper::DamageKeeper(const std::string& path, Reporter& reporter) : reporter_(reporter) {
    if (!path.empty()) file_ = std::make_unique<Output>(path, OutputRole::kBeside);
}

bool DamageKeeper::Take(const Item& item) {
    const bool isRecord = item.kind == kItemRecord;
    if (isRecord && !item.fault) return true;
    status_ = kStatusFindings;
    if (!item.continues) reporter_.SayFault(item);
    if ((!isRecord || item.isPartial) && file_) file_->Write(item.bytes);
    return isRecord;
}

void DamageKeeper::Complete() {
    if (file_) file_->Complete();
}

void DamageKeeper::Finish() {
    if (file_) file_->Finish();
}

}  // namespace quillory
