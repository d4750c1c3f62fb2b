#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace zorby {
namespace {

constexpr char kUnknownLeaderByte = '|';
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

// Returns how many bytes of data a record of `total` bytes must give up, in whole tens.
std::size_t BytesToCut(std::size_t total, std::size_t dataSize) {
    if (total <= kLongestRecord) return 0;
    return std::min((total - 99990) / 10 * 10, dataSize);
}

}  // namespace

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
    const std::size_t tagSize = std::min(tag.size(), kTagSize);
    directory_.resize(directory_.size() + kDirectoryEntrySize, '0');
    char* const entry = directory_.data() + directory_.size() - kDirectoryEntrySize;
    std::copy_n(tag.data(), tagSize, entry + kTagSize - tagSize);
    PutDecimal<4>(entry + 3, std::min(length, kLongestField));
    PutDecimal<5>(entry + 7, data_.size());
    data_.append(content);
    data_ += kFieldEnd;
    return true;
}

std::size_t CommFormatWriter::Finish(std::string& record) const {
    constexpr std::size_t kEnds = 2;  // those of the directory and of the record
    record.clear();
    if (directory_.empty() || data_.empty()) return 0;
    const std::size_t total = kLeaderSize + directory_.size() + data_.size() + kEnds;
    const std::size_t cut = BytesToCut(total, data_.size());
    record.reserve(total - cut);
    record = leader_;
    record.resize(kLeaderSize, kUnknownLeaderByte);
    PutDecimal<5>(record.data() + kLeaderLength, total - cut);
    PutDecimal<5>(record.data() + kLeaderBaseAddress, kLeaderSize + directory_.size() + 1);
    record += directory_;
    record += kFieldEnd;
    record.append(data_, 0, data_.size() - cut);
    record += kRecordEnd;
    return cut;
}

}  // namespace zorby
