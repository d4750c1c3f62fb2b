#include <quillory/exchange/PlainXmlRun.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

struct Holder {
    std::shared_ptr<const PlainXmlRun> run;
    std::shared_ptr<const void> bytes;
};

}  // namespace

std::size_t PlainXmlRun::Read(PlainXml& plain, std::string_view xml, std::uint64_t offset,
                              std::size_t most) {
    std::size_t taken = 0;
    for (size_ = 0; taken < most; ++size_) {
        if (size_ == records_.size()) records_.emplace_back();
        XmlRecord& record = records_[size_];
        if (plain.Read(xml.substr(taken), record.builder) != PlainXml::kRead) break;
        record.start = offset + taken + plain.Blanks();
        taken += plain.Size();
        record.end = offset + taken;
    }
    return taken;
}

std::shared_ptr<PlainXmlRun> PlainXmlRuns::Take() {
    const auto spare = std::ranges::find(runs_, 1, [](const auto& run) { return run.use_count(); });
    if (spare == runs_.end()) return runs_.emplace_back(std::make_shared<PlainXmlRun>());
    return *spare;
}

std::shared_ptr<const void> HolderOf(std::shared_ptr<const PlainXmlRun> run,
                                     std::shared_ptr<const void> bytes) {
    return std::make_shared<Holder>(Holder{std::move(run), std::move(bytes)});
}

PlainXmlRunReader::PlainXmlRunReader(const RecordRun& run)
    : records_(run.holder ? static_cast<const Holder*>(run.holder.get())->run.get() : nullptr),
      rest_(run.bytes),
      offset_(run.offset),
      count_(run.recordsBefore) {}

// White space before a record is an item of its own.
bool PlainXmlRunReader::Next(Item& item) {
    if (records_ == nullptr || given_ == records_->Size()) return false;
    const XmlRecord& record = records_->At(given_);
    const bool isRecord = offset_ == record.start;
    const auto size = static_cast<std::size_t>((isRecord ? record.end : record.start) - offset_);
    item.Begin(isRecord ? kItemRecord : kItemFrame, offset_, rest_.substr(0, size));
    if (isRecord) {
        ++count_;
        ++given_;
        record.builder.Give(item);
    }
    item.number = count_;
    offset_ += size;
    rest_.remove_prefix(size);
    return true;
}

}  // namespace quillory
