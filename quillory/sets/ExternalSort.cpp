#include <quillory/sets/ExternalSort.h>
#include <quillory/sets/Packing.h>

#include <algorithm>
#include <cstring>
#include <queue>
#include <string>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;
// Runs of one level become one of the next when there are so many: open files stay few.
constexpr std::size_t kRunsOfALevel = 32;
constexpr std::size_t kSmallestWindow = 4096;
constexpr std::size_t kLargestWindow = std::size_t{1} << 20;
constexpr std::size_t kLargestHeader = 20;

std::uint64_t HeadOf(std::string_view key) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < sizeof head; ++i) {
        head = head << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    return head;
}

void AppendEntry(std::string_view key, std::string_view payload, SpillFile& file) {
    std::string header;
    AppendNumber(key.size(), header);
    AppendNumber(payload.size(), header);
    file.Write(header);
    file.Write(key);
    file.Write(payload);
}

}  // namespace

// Reads the entries of a run through a window.
class ExternalSort::RunReader {
public:
    RunReader(SpillFile& file, std::size_t window) : file_(file) { buffer_.resize(window); }

    // The views hold until the next call. False at the end.
    bool Next() {
        const std::string_view header = Window(kLargestHeader);
        if (header.empty()) return false;
        std::string_view rest = header;
        const std::size_t keySize = TakeNumber(rest);
        const std::size_t payloadSize = TakeNumber(rest);
        begin_ += header.size() - rest.size();
        const std::string_view entry = Window(keySize + payloadSize);
        key_ = entry.substr(0, keySize);
        payload_ = entry.substr(key_.size(), payloadSize);
        begin_ += key_.size() + payload_.size();
        return true;
    }
    std::string_view Key() const { return key_; }
    std::string_view Payload() const { return payload_; }

private:
    // So many bytes from the place reached, or all that are left.
    std::string_view Window(std::size_t size) {
        if (end_ - begin_ < size) Fill(size);
        return std::string_view(buffer_).substr(begin_, end_ - begin_);
    }
    void Fill(std::size_t size) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
        if (buffer_.size() < size) buffer_.resize(size);
        const std::size_t got =
            file_.ReadAt(offset_, {buffer_.data() + end_, buffer_.size() - end_});
        offset_ += got;
        end_ += got;
    }

    SpillFile& file_;
    std::string buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::uint64_t offset_ = 0;
    std::string_view key_;
    std::string_view payload_;
};

ExternalSort::ExternalSort(std::size_t memory) : memory_(memory) {}

ExternalSort::~ExternalSort() = default;

char* ExternalSort::Room(std::size_t size) {
    if (size > free_) {
        free_ = std::max(size, std::min(kBlock, memory_));
        blocks_.emplace_back(new char[free_]);
        held_ += free_;
        end_ = blocks_.back().get() + free_;
    }
    char* room = end_ - free_;
    free_ -= size;
    return room;
}

// Bytes that are held once there is room for an entry. While the list of entries grows, the old one
// and the new one, which is twice as long, are there side by side.
std::size_t ExternalSort::NeededFor(std::size_t size) const {
    const std::size_t block = size > free_ ? std::max(size, std::min(kBlock, memory_)) : 0;
    const bool grows = entries_.size() == entries_.capacity();
    return held_ + block + entries_.capacity() * sizeof(Entry) * (grows ? 3 : 1);
}

void ExternalSort::Add(std::string_view key, std::string_view payload) {
    const std::size_t size = key.size() + payload.size();
    if (!entries_.empty() && NeededFor(size) > memory_) Spill();
    char* room = Room(size);
    key.copy(room, key.size());
    payload.copy(room + key.size(), payload.size());
    entries_.push_back({HeadOf(key), room, key.size(), payload.size()});
    ++count_;
}

void ExternalSort::SortEntries() {
    std::ranges::stable_sort(entries_, [](const Entry& a, const Entry& b) {
        if (a.head != b.head) return a.head < b.head;
        return std::string_view(a.key, a.keySize) < std::string_view(b.key, b.keySize);
    });
}

void ExternalSort::GiveEntries(const Take& take) {
    SortEntries();
    for (const Entry& entry : entries_) {
        take({entry.key, entry.keySize}, {entry.key + entry.keySize, entry.payloadSize});
    }
    entries_.clear();
    blocks_.clear();
    held_ = free_ = 0;
}

void ExternalSort::Spill() {
    ++spills_;
    auto file = std::make_unique<SpillFile>();
    GiveEntries([&file](std::string_view key, std::string_view payload) {
        AppendEntry(key, payload, *file);
    });
    AddRun(std::move(file), 0);
}

// The runs of one level are the last ones, side by side, so that their order is kept.
void ExternalSort::AddRun(std::unique_ptr<SpillFile> file, unsigned level) {
    runs_.push_back({std::move(file), level});
    const auto ofLevel = static_cast<std::size_t>(std::ranges::count(runs_, level, &Run::level));
    if (ofLevel < kRunsOfALevel) return;
    auto merged = std::make_unique<SpillFile>();
    Merge(runs_.size() - ofLevel, [&merged](std::string_view key, std::string_view payload) {
        AppendEntry(key, payload, *merged);
    });
    runs_.resize(runs_.size() - ofLevel);
    AddRun(std::move(merged), level + 1);
}

void ExternalSort::Merge(std::size_t first, const Take& take) {
    const std::size_t window =
        std::clamp(memory_ / (runs_.size() - first + 1), kSmallestWindow, kLargestWindow);
    std::vector<RunReader> readers;
    readers.reserve(runs_.size() - first);
    for (std::size_t i = first; i < runs_.size(); ++i) readers.emplace_back(*runs_[i].file, window);
    const auto comesLater = [&readers](std::size_t a, std::size_t b) {
        const int order = readers[a].Key().compare(readers[b].Key());
        return order != 0 ? order > 0 : a > b;
    };
    std::priority_queue<std::size_t, std::vector<std::size_t>, decltype(comesLater)> next(
        comesLater);
    for (std::size_t i = 0; i < readers.size(); ++i) {
        if (readers[i].Next()) next.push(i);
    }
    while (!next.empty()) {
        RunReader& reader = readers[next.top()];
        take(reader.Key(), reader.Payload());
        const std::size_t taken = next.top();
        next.pop();
        if (reader.Next()) next.push(taken);
    }
}

void ExternalSort::ForEach(const Take& take) {
    if (runs_.empty()) {
        GiveEntries(take);
        return;
    }
    if (!entries_.empty()) Spill();
    entries_.shrink_to_fit();
    Merge(0, take);
    runs_.clear();
}

}  // namespace quillory
