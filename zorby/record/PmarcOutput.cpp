#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>
#include <zorby/record/detail/FieldParts.h>
#include <zorby/text/detail/Digits.h>

#include <algorithm>
#include <new>

namespace zorby {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr char kMicrolifFieldEnd = '^';
constexpr char kMicrolifRecordEnd = '`';
constexpr char kMicrolifDelimiter = '_';
constexpr std::size_t kMicrolifHeadSize = kTagSize + kLeaderSize;

void PutMicrolifLength(std::string& head, std::size_t length) {
    constexpr std::size_t kDigits = 5;
    std::string digits = std::to_string(length);
    if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
    head.replace(kTagSize, kDigits, digits, 0, kDigits);
}

bool IsAnEnd(char c) {
    return c == kMicrolifRecordEnd || c == kMicrolifFieldEnd || c == kFieldEnd || c == kRecordEnd;
}

}  // namespace

void CPmarc::GetRecordAsCString(std::string& text) const {
    for (const std::string& field : *this) text.append(field).append(kLineEnd);
}

void CPmarc::ConvertToUSMARCCommFormat(std::string& record) const {
    record.clear();
    try {
        WriteCommFormat(record);
    } catch (const std::bad_alloc&) {
        record.clear();
    }
}

void CPmarc::WriteCommFormat(std::string& record) const {
    CommFormatWriter writer;
    std::size_t bytes = 0;
    for (const std::string& field : *this) bytes += field.size();
    writer.Reserve(FieldCount(), bytes);
    bool leaderSeen = false;
    for (const std::string& field : *this) {
        if (TagNumber(field) == 0 && !leaderSeen) {
            writer.SetLeader(ContentOf(field));
            leaderSeen = true;
        } else {
            writer.AddField(TagOf(field), ContentOf(field));
        }
    }
    writer.Finish(record);
    record.resize(std::min(record.find('\0'), record.size()));
}

void CPmarc::ConvertToOldMicrolif(std::string& text) const {
    std::string head;
    std::string body;
    for (const std::string& field : *this) {
        if (TagNumber(field) == 0) {
            head.assign("LDR").append(ContentOf(field));
        } else if (field.size() > kTagSize) {
            const std::size_t start = body.size();
            body.append(field);
            std::replace(body.begin() + static_cast<std::ptrdiff_t>(start), body.end(), kDelimiter,
                         kMicrolifDelimiter);
            body.append(1, kMicrolifFieldEnd).append(kLineEnd);
        }
    }
    if (!body.empty()) body.resize(body.size() - kLineEnd.size());
    body.append(1, kMicrolifRecordEnd).append(kLineEnd);
    head.resize(kMicrolifHeadSize, ' ');
    head.append(1, kMicrolifFieldEnd).append(kLineEnd);
    PutMicrolifLength(head, head.size() + body.size());
    text = head + body;
}

void CPmarc::AddOldMicrolifField(char* line, int length) {
    const auto size = static_cast<std::size_t>(std::max(length, 0));
    if (std::string_view(line, size).substr(0, kTagSize) == "LDR") {
        std::fill_n(line, kTagSize, '0');
    }
    std::replace_if(
        line, line + std::min(size, kTagSize), [](char c) { return !IsDigit(c); }, '0');
    std::string field(line, size);
    while (!field.empty() && IsAnEnd(field.back())) field.pop_back();
    if (field.empty()) return;
    if (TagOf(field) > "009") {
        std::replace(field.begin(), field.end(), kMicrolifDelimiter, kDelimiter);
    }
    FieldAppend(TagOf(field), ContentOf(field));
}

}  // namespace zorby
