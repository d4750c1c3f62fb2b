#include <quillory/exchange/FieldPlaces.h>
#include <quillory/exchange/Microlif.h>
#include <quillory/exchange/RecordCheck.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace quillory {
namespace {

constexpr std::string_view kFillers(" \t\r\n\x1A\0", 6);
constexpr char kRecordEndSign = '`';
constexpr char kDelimiterSign = '_';
constexpr std::string_view kEndSigns = "^`";  // of fields and records
constexpr std::string_view kLeaderLine = "LDR";
constexpr std::string_view kMicrolifLeaderTag = "000";

bool IsControlTag(std::string_view tag) {
    return tag.starts_with("00") && AreDigits(tag);
}

// Whether a line can begin with the tag: digits and letters, and not what begins a record.
bool IsCarried(std::string_view tag) {
    const auto isPart = [](char c) {
        return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    return tag.size() == kTagSize && tag != kLeaderLine && tag != kMicrolifLeaderTag &&
           std::ranges::all_of(tag, isPart);
}

// A header of a file: the old letters, or a word of any case with what follows, on a line that does
// not end as a field does.
bool IsHeader(std::string_view line) {
    constexpr std::string_view kWord = "header";
    constexpr std::string_view kFieldEnds = "^`\x1E\x1D";
    if (line.starts_with("HDR")) return true;
    const bool hasWord = std::ranges::equal(line.substr(0, kWord.size()), kWord, {},
                                            [](char c) { return static_cast<char>(c | 0x20); });
    return hasWord && (line.empty() || kFieldEnds.find(line.back()) == line.npos);
}

// The first line of a block. A header of 80 bytes may stand before the leader without a line end.
std::string_view FirstLine(std::string_view block) {
    constexpr std::size_t kHeaderSize = 80;
    const std::string_view line = block.substr(0, block.find_first_of("\r\n"));
    const bool isJoined =
        line.size() > kHeaderSize && line.substr(kHeaderSize).starts_with(kLeaderLine);
    return isJoined ? line.substr(0, kHeaderSize) : line;
}

FaultCode CodeOfFault(std::string_view tag, std::string_view content) {
    if (!AreDigits(tag)) return FaultCode::kNone;
    const bool isControl = IsControlTag(tag);
    const std::size_t first = std::min(content.find(zorby::kDelimiter), content.size());
    if (!isControl && first != kIndicators) return FaultCode::kNoIndicatorsBeforeDelimiter;
    const bool isEmpty = isControl ? content.ends_with(zorby::kDelimiter) : HasEmptyCode(content);
    return isEmpty ? FaultCode::kNoSubfieldCode : FaultCode::kNone;
}

// An underscore of the text is read as a delimiter, and signs for ends are taken off the end: where
// a delimiter would be left without a code, or a field without indicators, a blank comes instead.
void BlankWhatCannotBeRead(std::string& line) {
    const std::size_t last = line.find_last_not_of(kEndSigns);
    const std::size_t end = last == line.npos ? 0 : last + 1;
    for (std::size_t i = 0; i < end; ++i) {
        if (line[i] != kDelimiterSign) continue;
        const bool isCode = i > 0 && line[i - 1] == zorby::kDelimiter;
        const bool lacksCode =
            i + 1 == end || line[i + 1] == kDelimiterSign || line[i + 1] == zorby::kDelimiter;
        if (isCode || lacksCode) line[i] = ' ';
    }
    for (std::size_t i = end; i < line.size(); ++i) {
        const bool isCode = i > 0 && line[i - 1] == zorby::kDelimiter;
        if (isCode || i < kIndicators) line[i] = ' ';
    }
}

// What the line of a field has after its tag. A blank stands for what would break the line or the
// field: a line end, and an underscore as an indicator.
std::string InOneLine(std::string_view tag, std::string_view content) {
    std::string line(content);
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    std::ranges::replace_if(line, isLineEnd, ' ');
    if (IsControlTag(tag)) return line;
    const bool hasIndicators = line.find(zorby::kDelimiter) == kIndicators;
    if (hasIndicators) {
        std::replace(line.begin(), line.begin() + kIndicators, kDelimiterSign, ' ');
    }
    BlankWhatCannotBeRead(line);
    return line;
}

void CountMicrolifLosses(const zorby::CommFormatField& field, Losses& losses) {
    for (const char c : MicrolifLosses(field)) {
        losses.Add(kLossMicrolifSign, static_cast<unsigned char>(c));
    }
}

}  // namespace

bool MicrolifReader::Fits(std::string_view head) {
    return head.starts_with(kLeaderLine) || IsHeader(FirstLine(head));
}

// A record ends after the line that closes with the record terminator, or before the next head.
// Filler and a header at the front stand alone, as does what else is before the first head.
std::size_t MicrolifReader::EndOfRecord(std::string_view window) const {
    const std::size_t filler = window.find_first_not_of(kFillers);
    if (filler != 0 && filler != window.npos) return filler;
    std::string_view rest = window;
    while (!rest.empty()) {
        const std::size_t at = window.size() - rest.size();
        const std::string_view line = TakeLine(rest);
        if (line.starts_with(kLeaderLine) && at != 0) return at;
        const std::size_t end = window.size() - rest.size();
        // The second byte of a line end may not be in the window yet.
        const bool wholeLine = !rest.empty() || window.ends_with('\n');
        const bool isAlone = line.ends_with(kRecordEndSign) || (at == 0 && IsHeader(line));
        if (isAlone && wholeLine) return end;
    }
    return window.npos;
}

std::size_t MicrolifReader::StrayBytes(std::string_view block, FaultCode& what) {
    const std::size_t first = std::min(block.find_first_not_of(kFillers), block.size());
    if (first != 0) {
        what = FaultCode::kFiller;
        return first;
    }
    const std::string_view line = FirstLine(block);
    if (!IsHeader(line)) return 0;
    what = FaultCode::kFileHeader;
    std::string_view rest = block.substr(line.size());
    if (!rest.starts_with(kLeaderLine)) TakeLine(rest);
    return block.size() - rest.size();
}

// The library reads a line, but makes zeros of the letters in its tag.
FaultCode MicrolifReader::ReadLine(std::string_view line, Record& record) {
    constexpr std::string_view kAnyDataTag = "999";
    const std::string_view tag = line.substr(0, kTagSize);
    if (tag.size() < kTagSize) return FaultCode::kFieldWithoutTag;
    const bool isLeader = tag == kLeaderLine;
    if (!isLeader && tag != kMicrolifLeaderTag && !IsCarried(tag)) return FaultCode::kTagBytes;
    std::string text(line);
    if (!isLeader && !AreDigits(tag)) text.replace(0, kTagSize, kAnyDataTag);
    pmarc_.Clear();
    pmarc_.AddOldMicrolifField(text.data(), static_cast<int>(text.size()));
    std::string& held = lines_.emplace_back(*pmarc_.begin());
    if (isLeader) {
        if (!record.leader.empty()) return FaultCode::kSecondLeader;
        held.resize(kTagSize + zorby::kLeaderSize, ' ');
        record.leader = std::string_view(held).substr(kTagSize);
        return FaultCode::kNone;
    }
    const std::string_view content = std::string_view(held).substr(kTagSize);
    const FaultCode code = CodeOfFault(tag, content);
    if (code == FaultCode::kNone) record.fields.push_back({tag, content});
    return code;
}

void MicrolifReader::Read(std::string_view block, Item& item) {
    lines_.clear();
    FieldPlaces places;
    std::string_view rest = block;
    while (!rest.empty()) {
        const auto at = static_cast<std::size_t>(rest.data() - block.data());
        const std::string_view line = TakeLine(rest);
        if (line.find_first_not_of(" \t") == line.npos) continue;
        const FaultCode code = ReadLine(line, item.record);
        if (code == FaultCode::kNone) continue;
        const bool hasTag = IsCarried(line.substr(0, kTagSize));
        const Place place =
            hasTag ? places.After(item.record.fields, line.substr(0, kTagSize)) : Place();
        AddDamage(item, {{code, place, {}, hasTag ? "_" : ""}, at});
    }
    if (item.record.leader.empty()) {
        AddDamage(item, {{FaultCode::kNoLeaderLine, {}, {}, std::string(kLeaderLine)}});
    }
}

// The library takes a tag with letters for a head: the field is written under a number, and the
// letters are put in their place.
void AppendMicrolif(const Record& record, std::string& text) {
    constexpr std::string_view kAnyTag = "999";
    constexpr std::size_t kHeadSize = 30;  // with its ends, "^\r\n"
    constexpr std::size_t kEnds = 3;
    zorby::CPmarc pmarc;
    pmarc.FieldAppend(kMicrolifLeaderTag, InOneLine(kMicrolifLeaderTag, record.leader));
    std::vector<std::pair<std::size_t, std::string_view>> letters;
    std::size_t at = kHeadSize;
    for (const zorby::CommFormatField& field : record.fields) {
        if (!IsCarried(field.tag) || field.content.empty()) continue;
        const bool isNumber = std::ranges::all_of(field.tag, IsDigit);
        if (!isNumber) letters.emplace_back(at, field.tag);
        pmarc.FieldAppend(isNumber ? field.tag : kAnyTag, InOneLine(field.tag, field.content));
        at += kTagSize + field.content.size() + kEnds;
    }
    std::string one;
    pmarc.ConvertToOldMicrolif(one);
    for (const auto& [start, tag] : letters) one.replace(start, kTagSize, tag);
    text += one;
}

std::string MicrolifLosses(const zorby::CommFormatField& field) {
    const std::string_view content = field.content;
    std::string lost;
    std::copy_if(content.begin(), content.end(), std::back_inserter(lost), [&](char c) {
        return c == '\r' || c == '\n' ||
               c == (IsControlTag(field.tag) ? zorby::kDelimiter : kDelimiterSign);
    });
    const std::size_t last = content.find_last_not_of(kEndSigns);
    lost += content.substr(last == content.npos ? 0 : last + 1);
    return lost;
}

WriteResult MicrolifWriter::Write(const Record& record, Losses& losses) {
    if (record.fields.empty()) return NotWritten({FaultCode::kNothingToWrite});
    if (const auto fault = FaultOfLeader(record.leader)) return NotWritten(*fault);
    WriteResult result;
    FieldPlaces places;
    CountMicrolifLosses({kMicrolifLeaderTag, record.leader}, losses);
    const std::span fields = record.fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isCarried = IsCarried(fields[i].tag);
        if (isCarried && !fields[i].content.empty()) {
            CountMicrolifLosses(fields[i], losses);
            continue;
        }
        const Place place = places.After(fields.first(i), fields[i].tag);
        result.faults.push_back(isCarried
                                    ? Fault{FaultCode::kEmptyFieldLeftOut, place}
                                    : Fault{FaultCode::kTagNotCarried, place, "old MicroLIF"});
    }
    text_.clear();
    AppendMicrolif(record, text_);
    output_.Write(text_);
    return result;
}

}  // namespace quillory
