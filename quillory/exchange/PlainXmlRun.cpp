#include <quillory/exchange/PlainXmlRun.h>

#include <algorithm>
#include <span>
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
    text_.Clear();
    fields_.clear();
    notes_.clear();
    std::size_t taken = 0;
    while (taken < most && plain.Read(xml.substr(taken), builder_) == PlainXml::kRead) {
        const std::uint64_t start = offset + taken + plain.Blanks();
        taken += plain.Size();
        Keep(builder_, start, offset + taken);
    }
    return taken;
}

void PlainXmlRun::Keep(const RecordBuilder& builder, std::uint64_t start, std::uint64_t end) {
    const auto fields = builder.Fields();
    const auto notes = builder.Notes();
    records_.push_back(
        {start, end, text_.Size(), fields_.size(), fields.size(), notes_.size(), notes.size()});
    text_ += builder.Leader();
    text_ += builder.Contents();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isLast = i + 1 == fields.size();
        const std::size_t next = isLast ? builder.Contents().size() : fields[i + 1].start;
        fields_.push_back({fields[i].tag, static_cast<std::uint32_t>(next - fields[i].start)});
    }
    notes_.insert(notes_.end(), notes.begin(), notes.end());
}

void PlainXmlRun::Give(std::size_t index, Item& item) const {
    const KeptRecord& kept = records_[index];
    std::string_view text = text_.Text().substr(kept.text);
    const auto take = [&text](std::size_t size) {
        const std::string_view taken = text.substr(0, size);
        text.remove_prefix(size);
        return taken;
    };
    const auto notes = std::span(notes_).subspan(kept.note, kept.notes);
    item.notes.assign(notes.begin(), notes.end());
    item.record.leader = take(zorby::kLeaderSize);
    item.record.bytes = {};
    item.record.fields.resize(kept.fields);
    auto field = fields_.begin() + static_cast<std::ptrdiff_t>(kept.field);
    for (auto& [tag, content] : item.record.fields) {
        tag = {field->tag.data(), field->tag.size()};
        content = take(field->size);
        ++field;
    }
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
