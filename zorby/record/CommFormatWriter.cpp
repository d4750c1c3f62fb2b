#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace zorby {
namespace {

constexpr char kUnknownLeaderByte = '|';
constexpr std::size_t kEnds = 2;           // terminators, of the directory and of the record
constexpr std::size_t kDataLimit = 99999;  // bytes; all fields together stay below this

// The numbers from 00 to 99.
constexpr auto kPairs = [] {
    std::array<std::array<char, 2>, 100> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    }
    return pairs;
}();

// Writes a number in so many digits, with leading zeros. A longer number keeps its left digits.
template <std::size_t kDigits>
void PutDecimal(char* target, std::size_t number) {
    static_assert(kDigits == 4 || kDigits == 5);
    constexpr std::uint32_t kLimit = kDigits == 4 ? 10000 : 100000;
    while (number >= kLimit) number /= 10;
    const auto rest = static_cast<std::uint32_t>(number);
    if constexpr (kDigits == 5) *target++ = static_cast<char>('0' + rest / 10000);
    std::copy_n(kPairs[rest / 100 % 100].data(), 2, target);
    std::copy_n(kPairs[rest % 100].data(), 2, target + 2);
}

// Writes the 12 bytes of a field in the directory. A tag that is too short has zeros before it.
void PutEntry(char* target, std::string_view tag, std::size_t length, std::size_t start) {
    if (tag.size() == kTagSize) {
        std::copy_n(tag.data(), kTagSize, target);
    } else {
        const std::size_t tagSize = std::min(tag.size(), kTagSize);
        std::fill_n(target, kTagSize, '0');
        std::copy_n(tag.data(), tagSize, target + kTagSize - tagSize);
    }
    PutDecimal<4>(target + kTagSize, std::min(length, kLongestField));
    PutDecimal<5>(target + kTagSize + 4, start);
}

// Writes the 24 bytes of a leader that is known as far as it goes.
void PutLeader(char* target, std::string_view leader, std::size_t total, std::size_t baseAddress) {
    const std::size_t known = std::min(leader.size(), kLeaderSize);
    std::copy_n(leader.data(), known, target);
    std::fill_n(target + known, kLeaderSize - known, kUnknownLeaderByte);
    PutDecimal<5>(target + kLeaderLength, total);
    PutDecimal<5>(target + kLeaderBaseAddress, baseAddress);
}

bool IsTooLong(const CommFormatField& field) {
    return field.content.size() + 1 > kLongestField;
}

// Returns how many bytes of data a record of `total` bytes must give up, in whole tens.
std::size_t BytesToCut(std::size_t total, std::size_t dataSize) {
    if (total <= kLongestRecord) return 0;
    return std::min((total - 99990) / 10 * 10, dataSize);
}

}  // namespace

std::size_t CommFormatSize(std::span<const CommFormatField> fields) {
    std::size_t size = kLeaderSize + kEnds + fields.size() * (kDirectoryEntrySize + 1);
    for (const CommFormatField& field : fields) size += field.content.size();
    return size;
}

bool WriteCommFormat(std::string_view leader, std::span<const CommFormatField> fields,
                     std::string& record) {
    const std::size_t total = CommFormatSize(fields);
    if (fields.empty() || total > kLongestRecord) return false;
    if (total > kLongestField && std::ranges::any_of(fields, IsTooLong)) return false;
    record.resize(total);
    const std::size_t baseAddress = kLeaderSize + fields.size() * kDirectoryEntrySize + 1;
    PutLeader(record.data(), leader, total, baseAddress);
    char* entry = record.data() + kLeaderSize;
    char* const data = record.data() + baseAddress;
    char* to = data;
    for (const auto& [tag, content] : fields) {
        PutEntry(entry, tag, content.size() + 1, static_cast<std::size_t>(to - data));
        entry += kDirectoryEntrySize;
        to = std::copy(content.begin(), content.end(), to);
        *to++ = kFieldEnd;
    }
    *entry = kFieldEnd;
    *to = kRecordEnd;
    return true;
}

void CommFormatWriter::Clear() {
    leader_.clear();
    directory_.clear();
    data_.clear();
}

void CommFormatWriter::Reserve(std::size_t fields, std::size_t bytes) {
    directory_.reserve(fields * kDirectoryEntrySize);
    data_.reserve(std::min(bytes, kDataLimit));
}

void CommFormatWriter::SetLeader(std::string_view leader) {
    leader_.assign(leader.substr(0, kLeaderSize));
}

bool CommFormatWriter::AddField(std::string_view tag, std::string_view content) {
    const std::size_t length = content.size() + 1;
    if (data_.size() + length >= kDataLimit) return false;
    char entry[kDirectoryEntrySize];
    PutEntry(entry, tag, length, data_.size());
    directory_.append(entry, kDirectoryEntrySize);
    data_.append(content);
    data_ += kFieldEnd;
    return true;
}

std::size_t CommFormatWriter::Finish(std::string& record) const {
    record.clear();
    if (directory_.empty() || data_.empty()) return 0;
    const std::size_t total = kLeaderSize + directory_.size() + data_.size() + kEnds;
    const std::size_t cut = BytesToCut(total, data_.size());
    record.reserve(total - cut);
    record.resize(kLeaderSize);
    PutLeader(record.data(), leader_, total - cut, kLeaderSize + directory_.size() + 1);
    record += directory_;
    record += kFieldEnd;
    record.append(data_, 0, data_.size() - cut);
    record += kRecordEnd;
    return cut;
}

}  // namespace zorby
