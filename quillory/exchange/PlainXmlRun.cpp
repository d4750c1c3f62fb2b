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
    records_.clear();
    builder_.Clear();
    std::size_t taken = 0;
    while (taken < most && plain.Read(xml.substr(taken), builder_) == PlainXml::kRead) {
        const std::uint64_t start = offset + taken + plain.Blanks();
        taken += plain.Size();
        Keep(start, offset + taken);
    }
    return taken;
}

void PlainXmlRun::Keep(std::uint64_t start, std::uint64_t end) {
    const RecordBuilder::Mark mark = builder_.Here();
    KeptRecord& kept = records_.emplace_back(KeptRecord{start, end, {}, mark});
    builder_.Leader().copy(kept.leader.data(), kept.leader.size());
    builder_.BeginAt(mark);
}

void PlainXmlRun::Give(std::size_t index, Item& item) const {
    const KeptRecord& kept = records_[index];
    item.record.leader = {kept.leader.data(), kept.leader.size()};
    builder_.GiveBetween(index == 0 ? RecordBuilder::Mark{} : records_[index - 1].mark, kept.mark,
                         item);
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
    const bool isRecord = offset_ == records_->Start(given_);
    const std::uint64_t end = isRecord ? records_->End(given_) : records_->Start(given_);
    const auto size = static_cast<std::size_t>(end - offset_);
    item.Begin(isRecord ? kItemRecord : kItemFrame, offset_, rest_.substr(0, size));
    if (isRecord) {
        ++count_;
        records_->Give(given_++, item);
    }
    item.number = count_;
    offset_ += size;
    rest_.remove_prefix(size);
    return true;
}

}  // namespace quillory
