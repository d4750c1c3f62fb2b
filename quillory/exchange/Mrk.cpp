#include <quillory/exchange/Mrk.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <array>
#include <cctype>

namespace quillory {
namespace {

using zorby::CommFormatField;
using zorby::kDelimiter;

struct Mnemonic {
    std::string_view name;
    char sign;
};

constexpr std::array<Mnemonic, 5> kMnemonics{{
    {"{dollar}", '$'},
    {"{lcub}", '{'},
    {"{rcub}", '}'},
    {"{bsol}", '\\'},
    {"{esc}", '\x1B'},
}};

constexpr std::size_t kTagEnd = 4;  // of a line
constexpr std::string_view kLeaderTag = "LDR";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsNumber(std::string_view tag) {
    return std::all_of(tag.begin(), tag.end(), [](char c) { return c >= '0' && c <= '9'; });
}

enum LineKind { kControlLine, kDataLine, kOtherLine };

LineKind KindOf(std::string_view tag) {
    if (!IsNumber(tag)) return kOtherLine;
    return tag.starts_with("00") ? kControlLine : kDataLine;
}

// Sets the sign of the mnemonic at the front of `text`. Result: its size, 0 if there is none.
std::size_t ReadMnemonic(std::string_view text, char& sign) {
    for (const Mnemonic& mnemonic : kMnemonics) {
        if (!text.starts_with(mnemonic.name)) continue;
        sign = mnemonic.sign;
        return mnemonic.name.size();
    }
    constexpr std::size_t kHexSize = 4;
    if (text.size() < kHexSize || text[3] != '}') return 0;
    const std::size_t high = kHexDigits.find(text[1]);
    const std::size_t low = kHexDigits.find(text[2]);
    if (high > 1 || low > 15) return 0;  // control bytes only
    sign = static_cast<char>(high * 16 + low);
    return kHexSize;
}

// Appends the text of a line, mnemonics replaced by what they stand for. `blank` and `delimiter`,
// if not 0, are the signs that stand for a blank and a delimiter.
void Unescape(std::string_view text, char blank, char delimiter, std::string& out) {
    while (!text.empty()) {
        char sign = text.front();
        const std::size_t size = sign == '{' ? ReadMnemonic(text, sign) : 0;
        if (size == 0 && blank != 0 && sign == blank) sign = ' ';
        if (size == 0 && delimiter != 0 && sign == delimiter) sign = kDelimiter;
        out += sign;
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
}

void AppendHex(char c, std::string& out) {
    const auto byte = static_cast<unsigned char>(c);
    out += '{';
    out += kHexDigits[byte / 16];
    out += kHexDigits[byte % 16];
    out += '}';
}

// The reverse of Unescape.
void Escape(std::string_view text, LineKind kind, std::string& out) {
    for (const char c : text) {
        const bool isControl = static_cast<unsigned char>(c) < 0x20;
        if (c == '$') {
            out += "{dollar}";
        } else if (c == '{') {
            out += "{lcub}";
        } else if (c == '}') {
            out += "{rcub}";
        } else if (c == '\\' && kind != kDataLine) {
            out += "{bsol}";
        } else if (c == ' ' && kind == kControlLine) {
            out += '\\';
        } else if (c == kDelimiter && kind != kControlLine) {
            out += '$';
        } else if (isControl) {
            AppendHex(c, out);
        } else {
            out += c;
        }
    }
}

void AppendLine(std::string_view tag, std::string_view content, LineKind kind, std::string& text) {
    text.append("=").append(tag).append("  ");
    if (kind == kDataLine) {
        const std::string_view indicators = content.substr(0, 2);
        for (const char c : indicators) {
            if (c == ' ') {
                text += '\\';
            } else {
                Escape({&c, 1}, kOtherLine, text);
            }
        }
        content.remove_prefix(indicators.size());
    }
    Escape(content, kind, text);
    text += '\n';
}

bool HasTag(std::string_view line) {
    return line.size() >= kTagEnd && line.front() == '=';
}

std::string_view TagOf(std::string_view line) {
    return line.substr(1, kTagEnd - 1);
}

// `offset` is where the line begins.
ItemFault FaultInLine(FaultCode code, std::string_view line, const Record& record,
                      std::size_t offset) {
    ItemFault fault{{code}, offset};
    if (HasTag(line) && TagOf(line) != kLeaderTag) {
        fault.place = PlaceAfter(record.fields, TagOf(line));
    }
    if (code == FaultCode::kNoSubfieldCode) fault.allowed = "$";
    return fault;
}

}  // namespace

bool MrkReader::Fits(std::string_view head) {
    if (!head.starts_with('=')) return false;
    return head.starts_with("=LDR") ||
           head.substr(std::min(kTagEnd, head.size())).starts_with("  ");
}

// A record ends after its blank lines, or before the next leader.
std::size_t MrkReader::EndOfRecord(std::string_view window) const {
    std::string_view rest = window;
    bool begun = false;
    bool ended = false;
    while (!rest.empty()) {
        const std::size_t at = window.size() - rest.size();
        const std::string_view line = TakeLine(rest);
        const bool blank = line.find_first_not_of(" \t") == line.npos;
        if (ended && !blank) return at;
        if (begun && line.starts_with("=LDR")) return at;
        ended = ended || (begun && blank);
        begun = begun || !blank;
    }
    return window.npos;
}

std::size_t MrkReader::StrayBytes(std::string_view block, FaultCode& what) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (block.starts_with(kByteOrderMark)) {
        what = FaultCode::kByteOrderMark;
        return kByteOrderMark.size();
    }
    if (block.find_first_not_of(" \t\r\n") != block.npos) return 0;
    what = FaultCode::kBlankLines;
    return block.size();
}

std::string_view MrkReader::Hold(std::size_t start) const {
    return std::string_view(text_).substr(start);
}

// Indicators, then subfields that each have a code.
FaultCode MrkReader::ReadData(std::string_view text) {
    constexpr std::string_view kBlankSigns = "\\# ";
    for (std::size_t i = 0; i < 2; ++i) {
        if (text.empty()) return FaultCode::kNoIndicators;
        char sign = text.front();
        const std::size_t size = sign == '{' ? ReadMnemonic(text, sign) : 0;
        text_ += size == 0 && kBlankSigns.find(sign) != kBlankSigns.npos ? ' ' : sign;
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    if (!text.empty() && text.front() != '$') return FaultCode::kTextBeforeSubfields;
    for (std::size_t at = 0; at < text.size(); at = std::min(text.find('$', at + 2), text.size())) {
        if (at + 1 == text.size() || text[at + 1] == '$') return FaultCode::kNoSubfieldCode;
    }
    Unescape(text, 0, '$', text_);
    return FaultCode::kNone;
}

FaultCode MrkReader::ReadLine(std::string_view line, Record& record) {
    if (!HasTag(line)) return FaultCode::kLineWithoutTag;
    const std::string_view tag = TagOf(line);
    std::string_view text = line.substr(kTagEnd);
    text.remove_prefix(std::min({text.find_first_not_of(' '), text.size(), std::size_t{2}}));
    const LineKind kind = KindOf(tag);
    const std::size_t start = text_.size();
    if (tag == kLeaderTag || kind == kControlLine) {
        Unescape(text, '\\', 0, text_);
    } else if (kind == kOtherLine) {
        Unescape(text, 0, '$', text_);
    } else if (const FaultCode code = ReadData(text); code != FaultCode::kNone) {
        return code;
    }
    if (tag == kLeaderTag) {
        if (text_.size() - start > zorby::kLeaderSize) return FaultCode::kLeaderTooLong;
        text_.resize(start + zorby::kLeaderSize, ' ');
        record.leader = Hold(start);
    } else {
        record.fields.push_back({tag, Hold(start)});
    }
    return FaultCode::kNone;
}

// No text grows when it is unescaped, but a short leader is filled up: with room for that, the
// views stay good.
std::optional<ItemFault> MrkReader::Read(std::string_view block, Record& record) {
    text_.clear();
    text_.reserve(block.size() + zorby::kLeaderSize);
    std::string_view rest = block;
    while (!rest.empty()) {
        const auto at = static_cast<std::size_t>(rest.data() - block.data());
        const std::string_view line = TakeLine(rest);
        if (line.find_first_not_of(" \t") == line.npos) continue;
        const FaultCode code = ReadLine(line, record);
        if (code != FaultCode::kNone) return FaultInLine(code, line, record, at);
    }
    if (!record.leader.empty()) return std::nullopt;
    return ItemFault{{FaultCode::kNoLeaderLine, {}, {}, "=LDR"}};
}

void AppendMrkField(const CommFormatField& field, std::string& text) {
    AppendLine(field.tag, field.content, KindOf(field.tag), text);
}

void AppendMrk(const Record& record, std::string& text) {
    AppendLine("LDR", record.leader, kControlLine, text);
    for (const CommFormatField& field : record.fields) AppendMrkField(field, text);
    text += '\n';
}

WriteResult MrkWriter::Write(const Record& record, Losses&) {
    text_.clear();
    AppendMrk(record, text_);
    output_.Write(text_);
    return {};
}

}  // namespace quillory
