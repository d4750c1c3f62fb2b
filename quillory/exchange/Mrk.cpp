#include <quillory/exchange/FieldPlaces.h>
#include <quillory/exchange/Mrk.h>
#include <quillory/exchange/MrkMnemonics.h>
#include <quillory/exchange/RecordCheck.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Letters.h>

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
constexpr std::string_view kNumberSign = "{num}";

constexpr std::size_t kTagEnd = 4;  // of a line
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kMrkLeaderTag = "LDR";

bool IsNumber(std::string_view tag) {
    return std::all_of(tag.begin(), tag.end(), [](char c) { return c >= '0' && c <= '9'; });
}

enum LineKind { kControlLine, kDataLine, kOtherLine };

LineKind KindOf(std::string_view tag) {
    if (!IsNumber(tag)) return kOtherLine;
    return tag.starts_with("00") ? kControlLine : kDataLine;
}

// A sign that the form itself writes by its name.
struct Sign {
    char byte = 0;
    std::size_t size = 0;  // of its name with the braces, 0 if there is none
};

// At the front of `text`.
Sign ReadSign(std::string_view text) {
    for (const Mnemonic& mnemonic : kMnemonics) {
        if (text.starts_with(mnemonic.name)) return {mnemonic.sign, mnemonic.name.size()};
    }
    constexpr std::size_t kHexSize = 4;
    if (text.size() < kHexSize || text[0] != '{' || text[3] != '}') return {};
    const std::size_t high = kHexDigits.find(text[1]);
    const std::size_t low = kHexDigits.find(text[2]);
    if (high > 1 || low > 15) return {};  // control bytes only
    return {static_cast<char>(high * 16 + low), kHexSize};
}

// The name in braces at the front of `text`, with the braces; empty if there is none.
std::string_view NameInBraces(std::string_view text) {
    constexpr std::size_t kLongest = 12;
    const std::size_t end = text.substr(0, kLongest).find('}');
    if (!text.starts_with('{') || end == text.npos || end == 1) return {};
    const std::string_view name = text.substr(1, end - 1);
    const bool isName =
        std::ranges::all_of(name, [](unsigned char c) { return std::isalnum(c) != 0; });
    return isName ? text.substr(0, end + 1) : std::string_view();
}

std::string MnemonicBytesOf(std::string_view inBraces) {
    return inBraces.empty() ? std::string()
                            : MnemonicBytes(inBraces.substr(1, inBraces.size() - 2));
}

bool IsHigh(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

bool IsDiacritic(char marc8) {
    return static_cast<unsigned char>(marc8) >= 0xE0;
}

// A letter with the combining characters after it, at the front of a text in UTF-8.
std::string_view UnitAt(std::string_view text) {
    return text.substr(0, LetterSize(text));
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
            } else if (c == '#') {
                text += kNumberSign;
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
                      FieldPlaces& places, std::size_t offset) {
    ItemFault fault{{code}, offset};
    if (HasTag(line) && TagOf(line) != kMrkLeaderTag) {
        fault.place = places.After(record.fields, TagOf(line));
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

// A record ends after its blank lines, or before the next leader. A byte order mark stands alone.
std::size_t MrkReader::EndOfRecord(std::string_view window) const {
    if (window.starts_with(kByteOrderMark)) return kByteOrderMark.size();
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

// At the front of `text`, which is not empty.
char MrkReader::ReadIndicator(std::string_view& text) {
    constexpr std::string_view kBlankSigns = "\\# ";
    const char first = text.front();
    const std::string_view name = NameInBraces(text);
    const std::string bytes = MnemonicBytesOf(name);
    Sign sign = ReadSign(text);
    if (sign.size == 0 && bytes.size() == 1) sign = {bytes[0], name.size()};
    text.remove_prefix(std::max<std::size_t>(sign.size, 1));
    if (sign.size != 0) return sign.byte;
    return kBlankSigns.find(first) != kBlankSigns.npos ? ' ' : first;
}

// Indicators, then subfields that each have a code.
FaultCode MrkReader::ReadData(std::string_view text) {
    for (std::size_t i = 0; i < 2; ++i) {
        if (text.empty()) return FaultCode::kNoIndicators;
        text_ += ReadIndicator(text);
        if (text_.back() == kDelimiter) return FaultCode::kIndicatorIsDelimiter;
    }
    if (!text.empty() && text.front() != '$') return FaultCode::kTextBeforeSubfields;
    for (std::size_t at = 0; at < text.size(); at = std::min(text.find('$', at + 2), text.size())) {
        if (at + 1 == text.size() || text[at + 1] == '$') return FaultCode::kNoSubfieldCode;
    }
    Unescape(text, 0, '$');
    return FaultCode::kNone;
}

// Appends the text of a line, names in braces replaced by what they stand for. `blank` and
// `delimiter`, if not 0, are the signs that stand for a blank and a delimiter.
void MrkReader::Unescape(std::string_view text, char blank, char delimiter) {
    while (!text.empty()) {
        char sign = text.front();
        std::size_t size = 1;
        if (sign == '{') {
            const Sign own = ReadSign(text);
            if (own.size == 0) size = TakeMnemonics(text);
            if (own.size == 0 && size != 0) {
                text.remove_prefix(size);
                continue;
            }
            size = std::max<std::size_t>(own.size, 1);
            if (own.size != 0) sign = own.byte;
        } else if (blank != 0 && sign == blank) {
            sign = ' ';
        } else if (delimiter != 0 && sign == delimiter) {
            sign = kDelimiter;
        }
        text_ += sign;
        text.remove_prefix(size);
    }
}

// Appends what the name at the front stands for. Result: bytes taken, 0 if the name is not known.
std::size_t MrkReader::TakeMnemonics(std::string_view text) {
    const std::string_view name = NameInBraces(text);
    if (name.empty()) return 0;
    const std::string marc8 = MnemonicBytesOf(name);
    const bool needsUtf8 = isUtf8_ && !TextConverter::IsUntouched(marc8);
    const std::size_t size = marc8.empty() ? 0 : needsUtf8 ? TakeAsUtf8(text) : name.size();
    if (size == 0) ++unknown_;
    if (size != 0 && !needsUtf8) text_ += marc8;
    return size;
}

// In UTF-8 diacritics follow their letter.
std::size_t MrkReader::TakeAsUtf8(std::string_view text) {
    if (text.data() < letterless_) return 0;
    std::string marc8;
    std::size_t size = 0;
    while (marc8.empty() || IsDiacritic(marc8.back())) {
        const std::string_view name = NameInBraces(text.substr(size));
        const std::string bytes = MnemonicBytesOf(name);
        if (bytes.empty()) break;
        marc8 += bytes;
        size += name.size();
    }
    const std::string_view rest = text.substr(size);
    // The first half of a double diacritic stands for both.
    const bool isSecondHalf = (marc8 == "\xEC" && text_.ends_with("\u0361")) ||
                              (marc8 == "\xFB" && text_.ends_with("\u0360"));
    if (isSecondHalf) return size;
    const bool lacksLetter = IsDiacritic(marc8.back());
    if (lacksLetter && (rest.empty() || rest.front() == '$' || rest.front() == '{')) {
        letterless_ = rest.data();
        return 0;
    }
    const std::string_view letter = lacksLetter ? UnitAt(rest) : std::string_view();
    return AppendAsUtf8(marc8, letter) ? size + letter.size() : 0;
}

// A letter given is under the diacritics that the text is made of.
bool MrkReader::AppendAsUtf8(std::string_view marc8, std::string_view letter) {
    if (!toUtf8_) {
        toUtf8_ = std::make_unique<TextConverter>(kCharsetMarc8, kCharsetUtf8, kNormalFormD);
    }
    Losses losses;
    std::string utf8;
    toUtf8_->Append(std::string(marc8) + (letter.empty() ? "" : " "), utf8, losses);
    if (!losses.Empty()) return false;
    if (!letter.empty()) utf8.replace(0, 1, letter);
    text_ += Normalized(utf8, kNormalFormC);
    return true;
}

FaultCode MrkReader::ReadLine(std::string_view line, Record& record) {
    if (!HasTag(line)) return FaultCode::kLineWithoutTag;
    const std::string_view tag = TagOf(line);
    std::string_view text = line.substr(kTagEnd);
    text.remove_prefix(std::min({text.find_first_not_of(' '), text.size(), std::size_t{2}}));
    const LineKind kind = KindOf(tag);
    const std::size_t start = text_.size();
    if (tag == kMrkLeaderTag || kind == kControlLine) {
        Unescape(text, '\\', 0);
    } else if (kind == kOtherLine) {
        Unescape(text, 0, '$');
    } else if (const FaultCode code = ReadData(text); code != FaultCode::kNone) {
        return code;
    }
    if (tag == kMrkLeaderTag) {
        if (text_.size() - start > zorby::kLeaderSize) return FaultCode::kLeaderTooLong;
        text_.resize(start + zorby::kLeaderSize, ' ');
        record.leader = Hold(start);
        isUtf8_ = LabelledCharset(record.leader) == kCharsetUtf8;
    } else {
        record.fields.push_back({tag, Hold(start)});
    }
    return FaultCode::kNone;
}

// No text grows when it is unescaped, but a short leader is filled up: with room for that, the
// views stay good. A line that can't be read is left out.
void MrkReader::Read(std::string_view block, Item& item) {
    text_.clear();
    text_.reserve(block.size() + zorby::kLeaderSize);
    isUtf8_ = false;
    unknown_ = 0;
    letterless_ = block.data();
    FieldPlaces places;
    std::string_view rest = block;
    while (!rest.empty()) {
        const auto at = static_cast<std::size_t>(rest.data() - block.data());
        const std::string_view line = TakeLine(rest);
        if (line.find_first_not_of(" \t") == line.npos) continue;
        const FaultCode code = ReadLine(line, item.record);
        if (code == FaultCode::kNone) continue;
        AddDamage(item, FaultInLine(code, line, item.record, places, at));
    }
    item.notes.assign(unknown_, FaultCode::kUnknownMnemonics);
    if (item.record.leader.empty()) {
        AddDamage(item, {{FaultCode::kNoLeaderLine, {}, {}, "=LDR"}});
    }
}

void AppendMrkField(const CommFormatField& field, std::string& text) {
    AppendLine(field.tag, field.content, KindOf(field.tag), text);
}

void AppendMrk(const Record& record, std::string& text) {
    AppendLine("LDR", record.leader, kControlLine, text);
    for (const CommFormatField& field : record.fields) AppendMrkField(field, text);
    text += '\n';
}

// A letter in UTF-8 with its diacritics. It stays where the names would not give it back.
std::string MrkWriter::UnitAsMnemonics(std::string_view unit) {
    if (Normalized(unit, kNormalFormC) != unit) return std::string(unit);
    if (!toMarc8_) {
        toMarc8_ = std::make_unique<TextConverter>(kCharsetUtf8, kCharsetMarc8, kNormalFormC);
    }
    Losses losses;
    std::string marc8;
    toMarc8_->Append(unit, marc8, losses);
    const bool isOfTable =
        losses.Empty() && marc8.find('\x1B') == marc8.npos && !IsDiacritic(marc8.back());
    return isOfTable ? WithMnemonics(marc8, false) : std::string(unit);
}

// The text of a line with names for the characters beyond ASCII.
std::string MrkWriter::WithMnemonics(std::string_view text, bool isUtf8) {
    std::string named;
    while (!text.empty()) {
        const std::string_view unit = isUtf8 ? UnitAt(text) : text.substr(0, 1);
        if (unit.size() > 1) {
            named += UnitAsMnemonics(unit);
        } else if (!isUtf8 && IsHigh(unit.front())) {
            named += "{" + MnemonicOf(unit.front()) + "}";
        } else {
            named += unit;
        }
        text.remove_prefix(unit.size());
    }
    return named;
}

WriteResult MrkWriter::Write(const Record& record, Losses&) {
    if (const auto fault = FaultOfLeader(record.leader)) return NotWritten(*fault);
    WriteResult result;
    FieldPlaces places;
    text_.clear();
    AppendLine(kMrkLeaderTag, record.leader, kControlLine, text_);
    const std::span fields = record.fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].tag == kMrkLeaderTag) {
            result.faults.push_back({FaultCode::kTagNotCarried,
                                     places.After(fields.first(i), kMrkLeaderTag),
                                     "the line form"});
        } else {
            AppendMrkField(fields[i], text_);
        }
    }
    text_ += '\n';
    const bool isUtf8 = LabelledCharset(record.leader) == kCharsetUtf8;
    output_.Write(mnemonics_ ? WithMnemonics(text_, isUtf8) : text_);
    return result;
}

}  // namespace quillory
