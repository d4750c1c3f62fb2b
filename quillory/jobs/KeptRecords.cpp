#include <quillory/jobs/KeptRecords.h>
#include <quillory/sets/PackedItem.h>

namespace quillory {

Status KeptRecords::Read(
    const InputOptions& input, const std::function<bool(Item& item)>& take,
    const std::function<void(const Item& item, std::string_view packed)>& keep) {
    Status rescued = kStatusWell;
    const Status read = ReadFiles(input, reporter_, [&](Item& item) {
        if (item.kind != kItemRecord) return take(item);
        if (item.fault) {
            reporter_.SayFault(item);
            rescued = kStatusFindings;
        }
        if (files_.empty() || files_.back() != reporter_.File()) files_.push_back(reporter_.File());
        PackItem(item, files_.size() - 1, packed_);
        keep(item, packed_);
        return true;
    });
    return std::max(read, rescued);
}

const std::string& KeptRecords::Peek(std::string_view packed, Item& item) const {
    return files_[UnpackItem(packed, item)];
}

const std::string& KeptRecords::Unpack(std::string_view packed, Item& item) const {
    const std::string& file = Peek(packed, item);
    reporter_.GoBackTo(file);
    return file;
}

void KeptRecords::Finish() const {
    reporter_.GoBackTo(files_.size() == 1 ? files_.front() : "all files");
    reporter_.EndFile();
}

}  // namespace quillory
