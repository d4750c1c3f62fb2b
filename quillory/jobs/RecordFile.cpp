#include <quillory/exchange/RecordText.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/RecordFile.h>
#include <quillory/sets/PackedItem.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <unistd.h>
#include <utility>

namespace quillory {
namespace {

const Form& FormOfInput(Input& input) {
    const Form* form = FormOfContent(input);
    if (form == nullptr) form = FormOfFileName(input.Name());
    return form != nullptr ? *form : Forms().front();
}

constexpr std::size_t kHeadSize = 1024;
constexpr const char* kNoRecords = ": has no records that another one could follow";
constexpr const char* kChangedByAnother = ": another program has changed the file";

// Copies so many bytes, or all that are left.
void Copy(Input& input, std::uint64_t size, Output& output) {
    while (size > 0) {
        const std::string_view window = input.Peek(1);
        if (window.empty()) return;
        const auto part = std::min<std::uint64_t>(window.size(), size);
        output.Write(window.substr(0, part));
        input.Skip(part);
        size -= part;
    }
}

void Pass(Input& input, std::uint64_t size) {
    while (size > 0) {
        const auto part = std::min<std::uint64_t>(input.Peek(1).size(), size);
        if (part == 0) return;
        input.Skip(part);
        size -= part;
    }
}

// A document of another encoding would have to be written anew as a whole.
bool IsUtf8Document(std::string_view head) {
    std::string lower(head.substr(0, head.find('>')));
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
    const bool isOf16Bits = head.starts_with("\xFE\xFF") || head.starts_with("\xFF\xFE");
    const bool namesAnother =
        lower.find("encoding=") != lower.npos && lower.find("utf-8") == lower.npos;
    return !isOf16Bits && !namesAnother;
}

bool BeginsArray(std::string_view head) {
    const std::size_t first = head.find_first_not_of("\xEF\xBB\xBF \t\r\n");
    return first != head.npos && head[first] == '[';
}

}  // namespace

RecordFile::RecordFile(const std::string& path)
    : path_(path), stamp_(FileStamp::Of(path)), input_(std::make_unique<Input>(path)) {
    input_->GiveWhatUnpacks();
    const std::string_view head = input_->Peek(kHeadSize).substr(0, kHeadSize);
    isPacked_ = input_->IsPacked();
    form_ = &FormOfInput(*input_);
    isUtf8Document_ = IsUtf8Document(head);
    isArray_ = form_->name == "jsonl" && BeginsArray(head);
    Open();
    reader_ = form_->makeReader(*input_, true);
}

RecordFile::RecordFile() : form_(&Forms().front()) {}

RecordFile::~RecordFile() {
    if (descriptor_ >= 0) close(descriptor_);
}

void RecordFile::Open() {
    const int opened = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    if (opened < 0) throw FileError(path_ + ": " + std::strerror(errno));
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = opened;
}

double RecordFile::ShareFound() const {
    if (IsWhole() || input_->FileSize() == 0) return 1;
    return static_cast<double>(input_->BytesRead()) / static_cast<double>(input_->FileSize());
}

bool RecordFile::FindMore(std::size_t items) {
    for (; items > 0 && !IsWhole(); --items) {
        if (reader_->Next(found_)) {
            Take(found_);
            continue;
        }
        packing_ = input_->WhatIsDamaged();
        reader_.reset();
        input_.reset();
    }
    return !IsWhole();
}

void RecordFile::Take(const Item& item) {
    const auto size = static_cast<std::uint32_t>(item.bytes.size());
    if (item.continues && !entries_.empty()) {
        entries_.back().size += size;
        return;
    }
    if (item.kind != kItemRecord && item.kind != kItemDamaged) return;
    Entry entry{item.offset, size, 0};
    const bool isInPlace = !isPacked_ && !item.record.bytes.empty() && !item.fault;
    if (!isInPlace) {
        PackItem(item, 0, buffer_);
        packed_.Add(buffer_);
        entry.packed = packed_.Count();
    }
    if (item.fault) faults_[entries_.size()] = *item.fault;
    if (item.kind == kItemDamaged) damaged_.insert(entries_.size());
    entries_.push_back(entry);
}

const ItemFault* RecordFile::FaultAt(std::size_t index) const {
    const auto found = faults_.find(index);
    return found == faults_.end() ? nullptr : &found->second;
}

void RecordFile::ReadInPlace(const Entry& entry, Item& item) {
    buffer_.resize(entry.size);
    std::size_t done = 0;
    while (done < buffer_.size()) {
        const ssize_t got = pread(descriptor_, buffer_.data() + done, buffer_.size() - done,
                                  static_cast<off_t>(entry.offset + done));
        if (got == 0 || (got < 0 && errno != EINTR)) break;
        if (got > 0) done += static_cast<std::size_t>(got);
    }
    item.Begin(kItemRecord, entry.offset, buffer_);
    fields_.fields.swap(item.record.fields);
    const bool isRead = done == buffer_.size() && !zorby::ReadCommFormat(buffer_, fields_);
    fields_.fields.swap(item.record.fields);
    if (!isRead) throw FileError(path_ + kChangedByAnother);
    item.record.leader = fields_.leader;
    item.record.bytes = buffer_;
}

void RecordFile::ReadAsSaved(std::size_t index, Item& item) {
    const Entry& entry = entries_[index];
    if (entry.packed == 0) {
        ReadInPlace(entry, item);
    } else {
        packed_.Read(entry.packed - 1, buffer_);
        UnpackItem(buffer_, item);
    }
}

void RecordFile::Read(std::size_t index, Item& item) {
    const auto changed = changed_.find(index);
    if (changed == changed_.end()) {
        ReadAsSaved(index, item);
    } else {
        UnpackItem(changed->second, item);
    }
    item.number = index + 1;
    if (!IsDamaged(index)) return;
    item.kind = kItemDamaged;
    item.fault = *FaultAt(index);
}

void RecordFile::Replace(std::size_t index, const Record& record) {
    Item item;
    item.Begin(kItemRecord, entries_[index].offset, {});
    item.record = record;
    std::string packed;
    PackItem(item, 0, packed);
    changed_[index] = std::move(packed);
}

std::size_t RecordFile::Add(const Record& record) {
    if (!IsWhole()) throw FileError(path_ + ": is still being read");
    if (entries_.empty() && !path_.empty()) throw FileError(path_ + kNoRecords);
    Item item;
    item.Begin(kItemRecord, 0, {});
    item.record = record;
    PackItem(item, 0, buffer_);
    packed_.Add(buffer_);
    const std::uint64_t end = entries_.empty() ? 0 : entries_.back().offset + entries_.back().size;
    entries_.push_back({end, 0, packed_.Count()});
    ++added_;
    return entries_.size() - 1;
}

void RecordFile::RemoveLast() {
    if (added_ == 0) return;
    changed_.erase(entries_.size() - 1);
    entries_.pop_back();
    --added_;
}

std::size_t RecordFile::Changes() const {
    const std::size_t firstNew = entries_.size() - added_;
    const auto newOnes = std::distance(changed_.lower_bound(firstNew), changed_.end());
    return changed_.size() - static_cast<std::size_t>(newOnes) + added_;
}

void RecordFile::CheckCanBeSaved() const {
    if (path_.empty()) throw FileError("new records have no file yet");
    if (!IsWhole()) throw FileError(path_ + ": is still being read");
    if (packing_) throw FileError(path_, *packing_);
    if (HasChangedOnDisk()) throw FileError(path_ + kChangedByAnother);
    if (isPacked_ && !path_.ends_with(".gz")) {
        throw FileError(path_ + ": is packed, though its name does not end in .gz");
    }
    if (form_->isAlwaysUtf8 && !isUtf8Document_) throw FileError(path_ + ": is not in UTF-8");
}

std::string RecordFile::BytesOfChanged(std::size_t index) {
    Item item;
    ReadAsSaved(index, item);
    const std::string former(item.bytes);
    UnpackItem(changed_.at(index), item);
    RecordText text = TextAmongOthers(*form_, item.record, former);
    if (text.fault) {
        throw FileError(path_ + ": record " + std::to_string(index + 1), *text.fault);
    }
    return std::move(text.bytes);
}

RecordFile::NewText RecordFile::TextOfNew(std::size_t index) {
    Item item;
    ReadAsSaved(entries_.size() - added_ - 1, item);
    const std::string former(item.bytes);
    Read(index, item);
    RecordText text = TextAmongOthers(*form_, item.record, former);
    if (text.fault) {
        throw FileError(path_ + ": record " + std::to_string(index + 1), *text.fault);
    }
    return {GapAfter(*form_, former, isArray_), std::move(text.bytes)};
}

void RecordFile::Write(const NewBytes& newBytes) {
    Input input(path_);
    Output output(path_);
    for (const auto& [index, text] : newBytes) {
        const Entry& entry = entries_[index];
        Copy(input, entry.offset - input.Offset(), output);
        Pass(input, entry.size);
        output.Write(text.gap);
        output.Write(text.bytes);
    }
    Copy(input, std::numeric_limits<std::uint64_t>::max(), output);
    if (HasChangedOnDisk()) throw FileError(path_ + kChangedByAnother);
    output.Finish();
}

// Brings the index up to what has been written.
void RecordFile::TakeOver(const NewBytes& newBytes) {
    std::string packed;
    for (const auto& [index, text] : newBytes) {
        Entry& entry = entries_[index];
        faults_.erase(index);
        if (entry.packed != 0) {
            Item item;
            Read(index, item);
            item.bytes = text.bytes;
            PackItem(item, 0, packed);
            packed_.Add(packed);
            entry.packed = packed_.Count();
        }
    }
    std::uint64_t longer = 0;  // modulo 2^64: it may be shorter, too
    auto next = newBytes.begin();
    for (std::size_t i = next->first; i < entries_.size(); ++i) {
        Entry& entry = entries_[i];
        entry.offset += longer;
        if (next == newBytes.end() || next->first != i) continue;
        const auto& [gap, bytes] = next->second;
        entry.offset += gap.size();
        longer += gap.size() + bytes.size() - entry.size;
        entry.size = static_cast<std::uint32_t>(bytes.size());
        ++next;
    }
}

void RecordFile::Save() {
    CheckCanBeSaved();
    if (changed_.empty() && added_ == 0) return;
    const std::size_t firstNew = entries_.size() - added_;
    NewBytes newBytes;
    for (const auto& [index, packed] : changed_) {
        if (index < firstNew) newBytes[index] = {{}, BytesOfChanged(index)};
    }
    for (std::size_t i = firstNew; i < entries_.size(); ++i) newBytes[i] = TextOfNew(i);
    Write(newBytes);
    stamp_ = FileStamp::Of(path_);
    Open();
    TakeOver(newBytes);
    changed_.clear();
    added_ = 0;
}

}  // namespace quillory
