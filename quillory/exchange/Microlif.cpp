#include <quillory/exchange/Microlif.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <iterator>

namespace quillory {
namespace {

constexpr std::string_view kFillers(" \t\r\n\x1A\0", 6);
constexpr char kRecordEndSign = '`';
constexpr std::string_view kLeaderTag = "000";
constexpr std::size_t kIndicators = 2;

bool IsControlTag(std::string_view tag) {
    return tag.starts_with("00");
}

FaultCode FaultOf(std::string_view tag, std::string_view content) {
    const bool isControl = IsControlTag(tag);
    const std::size_t first = std::min(content.find(zorby::kDelimiter), content.size());
    if (!isControl && first != kIndicators) return FaultCode::kNoIndicatorsBeforeDelimiter;
    const bool isEmpty = isControl ? content.ends_with(zorby::kDelimiter) : HasEmptyCode(content);
    return isEmpty ? FaultCode::kNoSubfieldCode : FaultCode::kNone;
}

void CountMicrolifLosses(const zorby::CommFormatField& field, Losses& losses) {
    for (const char c : MicrolifLosses(field)) {
        losses.Add(kLossMicrolifSign, static_cast<unsigned char>(c));
    }
}

}  // namespace

bool MicrolifReader::Fits(std::string_view head) {
    return head.starts_with("LDR") || head.starts_with("HDR");
}

// A record ends after the line that closes with the record end, or before the next head.
std::size_t MicrolifReader::EndOfRecord(std::string_view window) const {
    std::string_view rest = window;
    bool begun = false;
    while (!rest.empty()) {
        const std::size_t at = window.size() - rest.size();
        const std::string_view line = TakeLine(rest);
        if (line.starts_with("LDR")) {
            if (begun) return at;
            begun = true;
        }
        const std::size_t end = window.size() - rest.size();
        // The second byte of a line end may not be in the window yet.
        const bool wholeLine = !rest.empty() || window.ends_with('\n');
        if (line.ends_with(kRecordEndSign) && wholeLine) return end;
    }
    return window.npos;
}

std::size_t MicrolifReader::StrayBytes(std::string_view block, FaultCode& what) {
    const std::size_t first = std::min(block.find_first_not_of(kFillers), block.size());
    if (first != 0) {
        what = FaultCode::kStrayBytes;
        return first;
    }
    if (!block.starts_with("HDR")) return 0;
    what = FaultCode::kFileHeader;
    std::string_view rest = block;
    TakeLine(rest);
    return block.size() - rest.size();
}

std::optional<ItemFault> MicrolifReader::TakeFields(Record& record) {
    for (const std::string& field : pmarc_) {
        const std::string_view tag = std::string_view(field).substr(0, kTagSize);
        const std::string_view content = std::string_view(field).substr(tag.size());
        if (tag.size() < kTagSize) return ItemFault{{FaultCode::kFieldWithoutTag}};
        if (tag == kLeaderTag && record.leader.empty()) {
            leader_.assign(content);
            leader_.resize(zorby::kLeaderSize, ' ');
            record.leader = leader_;
            continue;
        }
        const FaultCode code = FaultOf(tag, content);
        if (code != FaultCode::kNone) {
            return ItemFault{{code, PlaceAfter(record.fields, tag), {}, "_"}};
        }
        record.fields.push_back({tag, content});
    }
    if (!record.leader.empty()) return std::nullopt;
    return ItemFault{{FaultCode::kNoLeaderLine, {}, {}, "LDR"}};
}

std::optional<ItemFault> MicrolifReader::Read(std::string_view block, Record& record) {
    pmarc_.Clear();
    std::string_view rest = block;
    while (!rest.empty()) {
        std::string line(TakeLine(rest));
        pmarc_.AddOldMicrolifField(line.data(), static_cast<int>(line.size()));
    }
    return TakeFields(record);
}

void AppendMicrolif(const Record& record, std::string& text) {
    zorby::CPmarc pmarc;
    pmarc.FieldAppend("000", record.leader);
    for (const zorby::CommFormatField& field : record.fields) {
        pmarc.FieldAppend(field.tag, field.content);
    }
    std::string one;
    pmarc.ConvertToOldMicrolif(one);
    text += one;
}

std::string MicrolifLosses(const zorby::CommFormatField& field) {
    const std::string_view content = field.content;
    std::string lost;
    std::copy_if(content.begin(), content.end(), std::back_inserter(lost), [&](char c) {
        return c == '\r' || c == '\n' || c == (IsControlTag(field.tag) ? zorby::kDelimiter : '_');
    });
    std::copy_if(field.tag.begin(), field.tag.end(), std::back_inserter(lost),
                 [](char c) { return c < '0' || c > '9'; });
    const std::size_t last = content.find_last_not_of("^`");
    lost += content.substr(last == content.npos ? 0 : last + 1);
    return lost;
}

WriteResult MicrolifWriter::Write(const Record& record, Losses& losses) {
    if (record.fields.empty()) return NotWritten({FaultCode::kNothingToWrite});
    WriteResult result;
    CountMicrolifLosses({"000", record.leader}, losses);
    const std::span fields = record.fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].content.empty()) {
            result.faults.push_back(
                {FaultCode::kEmptyFieldLeftOut, PlaceAfter(fields.first(i), fields[i].tag)});
        }
        CountMicrolifLosses(fields[i], losses);
    }
    text_.clear();
    AppendMicrolif(record, text_);
    output_.Write(text_);
    return result;
}

}  // namespace quillory
