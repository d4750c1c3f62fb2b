#include <zorby/record/detail/CommFormatParts.h>

#include <numeric>

namespace zorby {
namespace {

// Returns whether the bytes up to `end` can be a directory: whole entries, each a tag and nine more
// bytes.
bool IsDirectory(std::string_view bytes, std::size_t end) {
    if (end <= kLeaderSize || end >= bytes.size()) return false;
    const std::string_view directory = bytes.substr(kLeaderSize, end - kLeaderSize);
    if (directory.size() % kDirectoryEntrySize != 0) return false;
    for (std::size_t at = 0; at < directory.size(); at += kDirectoryEntrySize) {
        if (!IsTag(directory.substr(at, 3))) return false;
    }
    return std::none_of(directory.begin(), directory.end(),
                        [](char c) { return c >= 0 && c < ' '; });
}

// Returns where the directory ends: at the first field terminator, or where the base address says.
// 0 means that it ends at neither.
std::size_t FindDirectoryEnd(std::string_view bytes) {
    const std::size_t first = bytes.find(kFieldEnd);
    if (first != bytes.npos && IsDirectory(bytes, first)) return first;
    const int base = DecimalField(bytes, kLeaderBaseAddress, 5);
    const std::size_t end = base > 0 ? static_cast<std::size_t>(base) - 1 : 0;
    return IsDirectory(bytes, end) ? end : 0;
}

// Returns the fields between the field terminators. The last one may lack its own.
std::vector<std::string_view> SplitFields(std::string_view data) {
    std::vector<std::string_view> contents;
    while (!data.empty()) {
        const std::size_t end = std::min(data.find(kFieldEnd), data.size());
        contents.push_back(data.substr(0, end));
        data.remove_prefix(std::min(end + 1, data.size()));
    }
    return contents;
}

class FieldOrder {
public:
    FieldOrder(std::string_view directory, const std::vector<std::string_view>& contents)
        : directory_(directory), contents_(contents) {}

    // Returns, for each entry, the number of its field in the data, or nothing if the starts don't
    // settle that.
    std::vector<std::size_t> Find() const;

private:
    int Start(std::size_t entry) const {
        return DecimalField(directory_, entry * kDirectoryEntrySize + 7, 5);
    }
    bool StartsAscend() const;
    bool StartsAgree(const std::vector<std::size_t>& order) const;

    std::string_view directory_;
    const std::vector<std::string_view>& contents_;
};

bool FieldOrder::StartsAscend() const {
    int last = -1;
    for (std::size_t entry = 0; entry < contents_.size(); ++entry) {
        const int start = Start(entry);
        if (start < 0) continue;
        if (start <= last) return false;
        last = start;
    }
    return true;
}

// Returns whether the start in each entry is that of its field, in the five digits of the
// directory.
bool FieldOrder::StartsAgree(const std::vector<std::size_t>& order) const {
    constexpr std::size_t kStartLimit = 100000;
    for (std::size_t entry = 0; entry < order.size(); ++entry) {
        const auto start =
            static_cast<std::size_t>(contents_[order[entry]].data() - contents_[0].data());
        if (Start(entry) != static_cast<int>(start % kStartLimit)) return false;
    }
    return true;
}

std::vector<std::size_t> FieldOrder::Find() const {
    std::vector<std::size_t> order(contents_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (StartsAscend() || StartsAgree(order)) return order;
    std::vector<std::size_t> byStart = order;
    std::stable_sort(byStart.begin(), byStart.end(),
                     [this](std::size_t a, std::size_t b) { return Start(a) < Start(b); });
    for (std::size_t rank = 0; rank < byStart.size(); ++rank) order[byStart[rank]] = rank;
    return StartsAgree(order) ? order : std::vector<std::size_t>{};
}

std::string MendedLeader(std::string_view leader) {
    std::string mended(leader);
    mended.replace(kLeaderIndicatorCount, 2, "22");
    mended.replace(kLeaderEntryMap, 4, "4500");
    return mended;
}

}  // namespace

CommFormatFault RescueCommFormat(std::string_view bytes, CommFormatRescue& rescue) {
    rescue.fields.clear();
    if (bytes.empty()) return Fault(CFR_Empty, 0);
    const std::size_t recordEnd = std::min(bytes.find(kRecordEnd), bytes.size());
    if (recordEnd <= kLeaderSize || (recordEnd == bytes.size() && bytes.back() != kFieldEnd)) {
        return Fault(CFR_CutShort, recordEnd);
    }
    const std::size_t directoryEnd = FindDirectoryEnd(bytes.substr(0, recordEnd));
    if (directoryEnd == 0) return Fault(CFR_DirectorySize, kLeaderSize);
    const std::string_view directory = bytes.substr(kLeaderSize, directoryEnd - kLeaderSize);
    const std::string_view data = bytes.substr(directoryEnd + 1, recordEnd - directoryEnd - 1);
    const std::vector<std::string_view> contents = SplitFields(data);
    if (contents.size() != directory.size() / kDirectoryEntrySize) {
        return Fault(CFR_FieldCount, directoryEnd + 1);
    }
    const std::vector<std::size_t> order = FieldOrder(directory, contents).Find();
    if (order.empty()) return Fault(CFR_DirectoryEntry, kLeaderSize);
    for (std::size_t entry = 0; entry < order.size(); ++entry) {
        CommFormatField field{directory.substr(entry * kDirectoryEntrySize, 3),
                              contents[order[entry]]};
        while (!field.content.empty() && field.content.back() == kDelimiter) {
            field.content.remove_suffix(1);
        }
        const ContentFault fault = CheckContent(field);
        if (fault.reason != CFR_None) {
            const auto start = static_cast<std::size_t>(field.content.data() - bytes.data());
            return Fault(fault.reason, start + fault.offset, field.tag);
        }
        rescue.fields.push_back(field);
    }
    rescue.leader = MendedLeader(bytes.substr(0, kLeaderSize));
    return {};
}

}  // namespace zorby
