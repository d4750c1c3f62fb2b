#include <quillory/exchange/MarcSalvage.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

using zorby::kDirectoryEntrySize;
using zorby::kFieldEnd;
using zorby::kLeaderSize;
using zorby::kRecordEnd;

constexpr std::size_t kTag = 3;
constexpr std::size_t kLengthDigits = 4;
constexpr std::size_t kStartDigits = 5;
constexpr std::size_t kStartLimit = 100000;
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kUnknownTag = "???";

std::optional<std::size_t> NumberOf(std::string_view digits) {
    std::size_t number = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + static_cast<std::size_t>(c - '0');
    }
    return number;
}

bool IsTag(std::string_view tag) {
    return tag.size() == kTag &&
           std::ranges::all_of(tag, [](char c) { return c > ' ' && c < 0x7F; });
}

// A number with leading zeros, of more digits if it needs more.
std::string Digits(std::size_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    return text;
}

std::size_t SizeOf(std::string_view text, bool inCharacters) {
    if (!inCharacters) return text.size();
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return !IsContinuation(c); }));
}

// The bytes with `instead` for each line end but those after the record. Adds how many there were.
std::string Unwrapped(std::string_view bytes, std::string_view instead, std::size_t& count) {
    std::string text;
    while (!bytes.empty()) {
        const std::size_t at = std::min(bytes.find_first_of(kLineEnds), bytes.size());
        text += bytes.substr(0, at);
        if (at == bytes.size()) break;
        text += instead;
        ++count;
        bytes.remove_prefix(at + (bytes.substr(at).starts_with(kLineEnds) ? 2 : 1));
    }
    return text;
}

// Text for a message; a long one is cut.
std::string Shown(std::string_view bytes) {
    constexpr std::size_t kMost = 300;
    if (bytes.empty()) return "nothing";
    return "\"" + Printable(bytes.substr(0, kMost)) + (bytes.size() > kMost ? "...\"" : "\"");
}

}  // namespace

void MarcSalvage::Read(std::string_view bytes) {
    bytes_ = bytes;
    isRecord_ = false;
    leader_ = {};
    fields_.clear();
    others_.clear();
    mends_.clear();
    mender_.Clear();
    taken_.clear();
    if (!ReadUnwrapped(bytes) && !ReadWhole(bytes)) ReadFields(bytes);
}

// A program for mail or text may put line ends into a record, or write them for blanks. The record
// is read if it is sound without them.
bool MarcSalvage::ReadUnwrapped(std::string_view bytes) {
    if (bytes.find_first_of(kLineEnds) == bytes.npos) return false;
    constexpr std::pair<std::string_view, FaultCode> kWays[] = {
        {"", FaultCode::kLineEndsLeftOut}, {" ", FaultCode::kLineEndsForBlanks}};
    for (const auto& [instead, code] : kWays) {
        std::size_t count = 0;
        unwrapped_ = Unwrapped(bytes, instead, count);
        if (zorby::ReadCommFormat(unwrapped_, read_)) continue;
        leader_ = read_.leader;
        fields_ = read_.fields;
        mends_.push_back({{code, {}, std::to_string(count)}});
        isRecord_ = true;
        return true;
    }
    return false;
}

bool MarcSalvage::ReadWhole(std::string_view bytes) {
    if (zorby::RescueCommFormat(bytes, rescue_)) return false;
    leader_ = rescue_.leader;
    fields_ = rescue_.fields;
    isRecord_ = true;
    return true;
}

// Where the field terminator after the directory is; 0 if that is not clear.
std::size_t MarcSalvage::DirectoryEnd(std::string_view bytes) const {
    const auto isEnd = [bytes](std::size_t end) {
        return end > kLeaderSize && end < bytes.size() && bytes[end] == kFieldEnd &&
               (end - kLeaderSize) % kDirectoryEntrySize == 0;
    };
    const std::size_t first = bytes.find(kFieldEnd);
    if (isEnd(first)) return first;
    const auto base = NumberOf(bytes.substr(zorby::kLeaderBaseAddress, kStartDigits));
    if (base && isEnd(*base - 1)) return *base - 1;
    return first != bytes.npos && first > kLeaderSize ? first : 0;
}

bool MarcSalvage::ReadDirectory(std::string_view directory) {
    const bool isWhole = directory.size() % kDirectoryEntrySize == 0;
    if (ReadGrownDirectory(directory)) return true;
    entries_.clear();
    if (!isWhole) return false;
    for (; !directory.empty(); directory.remove_prefix(kDirectoryEntrySize)) {
        entries_.push_back({directory.substr(0, kTag),
                            NumberOf(directory.substr(kTag, kLengthDigits)),
                            NumberOf(directory.substr(kTag + kLengthDigits, kStartDigits))});
    }
    return true;
}

// In a record that is too long, some programs write lengths and starts with more digits than the
// directory has. Such a directory is read where all of it agrees with the fields in the data.
bool MarcSalvage::ReadGrownDirectory(std::string_view directory) {
    entries_.clear();
    for (const std::string_view content : contents_) {
        const auto start = static_cast<std::size_t>(content.data() - data_.data());
        const std::size_t size = content.size() + 1;
        const std::string numbers = Digits(size, kLengthDigits) + Digits(start, kStartDigits);
        if (!IsTag(directory.substr(0, kTag)) || !directory.substr(kTag).starts_with(numbers)) {
            return false;
        }
        entries_.push_back({directory.substr(0, kTag), size, start});
        directory.remove_prefix(kTag + numbers.size());
    }
    return directory.empty();
}

void MarcSalvage::SplitData(std::string_view data) {
    data_ = data;
    contents_.clear();
    while (!data.empty()) {
        const std::size_t end = std::min(data.find(kFieldEnd), data.size());
        contents_.push_back(data.substr(0, end));
        data.remove_prefix(std::min(end + 1, data.size()));
    }
}

// As many fields as entries: they are in order if the starts say so, as far as they are numbers.
bool MarcSalvage::MatchInOrder() {
    if (entries_.size() != contents_.size()) return false;
    std::optional<std::size_t> last;
    bool ascends = true;
    bool agrees = true;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const auto start = static_cast<std::size_t>(contents_[i].data() - data_.data());
        agrees = agrees && entries_[i].start == start % kStartLimit;
        if (!entries_[i].start) continue;
        ascends = ascends && (!last || *entries_[i].start > *last);
        last = entries_[i].start;
    }
    if (!ascends && !agrees) return false;
    matches_ = contents_;
    return true;
}

// The entries lay the data out without a gap, and some fields hold a field terminator.
bool MarcSalvage::MatchTiles() {
    std::size_t next = 0;
    matches_.clear();
    for (const Entry& entry : entries_) {
        if (entry.start != next || !entry.size || *entry.size == 0) return false;
        const std::string_view field = data_.substr(std::min(next, data_.size()), *entry.size);
        if (field.size() != *entry.size || field.back() != kFieldEnd) return false;
        matches_.push_back(field.substr(0, field.size() - 1));
        next += *entry.size;
    }
    return next == data_.size();
}

// An entry counts if its start and its length are those of a field in the data, in bytes, or in
// characters of UTF-8 as some programs count. Result: how many entries count.
std::size_t MarcSalvage::MatchEach(bool inCharacters) {
    matches_.assign(entries_.size(), {});
    used_.assign(contents_.size(), false);
    std::vector<std::size_t> starts;
    std::size_t start = 0;
    for (const std::string_view content : contents_) {
        starts.push_back(start);
        start += SizeOf(content, inCharacters) + 1;
    }
    std::size_t count = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (!entries_[i].start) continue;
        const auto at = std::ranges::lower_bound(starts, *entries_[i].start);
        const auto index = static_cast<std::size_t>(at - starts.begin());
        if (at == starts.end() || *at != *entries_[i].start || used_[index]) continue;
        if (entries_[i].size != SizeOf(contents_[index], inCharacters) + 1) continue;
        used_[index] = true;
        matches_[i] = contents_[index];
        ++count;
    }
    return count;
}

void MarcSalvage::Match() {
    if (MatchInOrder() || MatchTiles()) {
        used_.assign(contents_.size(), true);
    } else {
        const std::size_t inCharacters = MatchEach(true);
        if (MatchEach(false) < inCharacters) MatchEach(true);
    }
}

std::size_t MarcSalvage::OffsetOf(std::string_view part) const {
    return part.data() == nullptr ? 0 : static_cast<std::size_t>(part.data() - bytes_.data());
}

// Of a field that comes after those taken so far.
Place MarcSalvage::PlaceOfNext(std::string_view tag) const {
    if (tag == kUnknownTag) return {};
    const auto taken = taken_.find(tag);
    return Place::OfField(tag, taken == taken_.end() ? 1 : taken->second + 1);
}

void MarcSalvage::LeaveOut(FaultCode code, std::string_view tag, std::string_view content) {
    mends_.push_back({{code, PlaceOfNext(tag), Shown(content)}, OffsetOf(content)});
    others_.push_back({tag, content});
}

void MarcSalvage::TakeField(std::string_view tag, std::string_view content) {
    FieldMender::Mended mended = mender_.Mend(tag, content);
    if (!mended.isRead || !IsTag(tag)) {
        LeaveOut(FaultCode::kFieldNotRead, IsTag(tag) ? tag : kUnknownTag, content);
        return;
    }
    for (Fault& fault : mended.faults) {
        fault.place = PlaceOfNext(tag);
        mends_.push_back({std::move(fault), OffsetOf(content)});
    }
    fields_.push_back({tag, mended.content});
    ++taken_[std::string(tag)];
}

void MarcSalvage::TakeMatches() {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (matches_[i].data() != nullptr) {
            TakeField(entries_[i].tag, matches_[i]);
        } else {
            const bool isTag = IsTag(entries_[i].tag);
            LeaveOut(FaultCode::kFieldNotRead, isTag ? entries_[i].tag : kUnknownTag, {});
        }
    }
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (!used_[i]) LeaveOut(FaultCode::kDataNotRead, kUnknownTag, contents_[i]);
    }
}

void MarcSalvage::ReadFields(std::string_view bytes) {
    const std::size_t recordEnd = std::min(bytes.find(kRecordEnd), bytes.size());
    const std::string_view record = bytes.substr(0, recordEnd);
    if (record.size() < kLeaderSize) return;
    leader_ = record.substr(0, kLeaderSize);
    const std::size_t end = DirectoryEnd(record);
    SplitData(record.substr(end == 0 ? kLeaderSize : end + 1));
    const bool hasDirectory =
        end != 0 && ReadDirectory(record.substr(kLeaderSize, end - kLeaderSize));
    if (!hasDirectory) entries_.clear();
    // Where the record breaks off, so does its last field.
    const bool isCut = recordEnd == bytes.size() && !data_.empty() && data_.back() != kFieldEnd;
    const std::string_view cut = isCut ? contents_.back() : std::string_view();
    if (isCut) contents_.pop_back();
    used_.assign(contents_.size(), false);
    matches_.clear();
    if (hasDirectory) Match();
    TakeMatches();
    if (isCut) LeaveOut(FaultCode::kDataNotRead, kUnknownTag, cut);
    const bool isLeader = leader_.find_first_of("\x1D\x1E\x1F") == leader_.npos;
    isRecord_ = isLeader && fields_.size() * 2 > std::max(entries_.size(), contents_.size());
}

}  // namespace quillory
