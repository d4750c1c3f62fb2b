#include <quillory/text/QmText.h>
#include <quillory/text/QmUnicode.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

#include <tools/zorby-data/CellText.h>

namespace datatool {
namespace {

constexpr std::size_t kHexEscape = 4;  // \xHH

const quillory::QmUnicode& Code() {
    return quillory::QmUnicode::Of(quillory::kNormalFormC);
}

std::string Formatted(const char* format, unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

// The bytes in front of the first character that doesn't go into the code after `before`. The
// longest good beginning counts, for a double diacritic is only good with both of its letters.
std::size_t GoodBytes(std::string_view utf8, const std::string& before) {
    std::size_t good = 0;
    for (std::size_t end = 0; end < utf8.size();) {
        end += quillory::DecodeUtf8(utf8.substr(end)).size;
        std::string text = before;
        if (Code().AppendQm(utf8.substr(0, end), text)) good = end;
    }
    return good;
}

std::string NotInCode(std::string_view character) {
    const quillory::Utf8Char decoded = quillory::DecodeUtf8(character);
    if (!decoded.valid) return "the text is no UTF-8";
    return Formatted("U+%04X", static_cast<unsigned>(decoded.codePoint)) +
           " isn't in the one-byte code here";
}

void AppendPlain(std::string_view utf8, CellText& cell) {
    const std::string before = cell.text;
    if (Code().AppendQm(utf8, cell.text)) return;
    cell.fault = NotInCode(utf8.substr(GoodBytes(utf8, before)));
}

bool AppendHex(std::string_view escape, std::string& text) {
    if (escape.size() < kHexEscape) return false;
    unsigned char byte = 0;
    const char* const end = escape.data() + kHexEscape;
    const auto [stop, error] = std::from_chars(escape.data() + 2, end, byte, 16);
    text += static_cast<char>(byte);
    return error == std::errc() && stop == end;
}

// Result: bytes taken.
std::size_t AppendEscape(std::string_view escape, CellText& cell) {
    const char letter = escape.size() > 1 ? escape[1] : '\0';
    if (letter == 'x' && AppendHex(escape, cell.text)) return kHexEscape;
    if (letter == 't') {
        cell.text += '\t';
    } else if (letter == 'n') {
        cell.text += '\n';
    } else if (letter == '\\') {
        cell.text += '\\';
    } else {
        cell.fault = "a backslash begins \\t, \\n, \\\\ or \\x with two hexadecimal digits";
    }
    return std::min<std::size_t>(escape.size(), 2);
}

bool NeedsEscape(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F || byte == '\\';
}

std::string Escape(char byte) {
    if (byte == '\t') return "\\t";
    if (byte == '\n') return "\\n";
    if (byte == '\\') return "\\\\";
    return Formatted("\\x%02x", static_cast<unsigned char>(byte));
}

std::string Readable(std::string_view text) {
    std::string cell;
    while (!text.empty()) {
        const auto special = std::ranges::find_if(text, NeedsEscape);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        Code().AppendUtf8(text.substr(0, plain), cell);
        if (plain < text.size()) cell += Escape(text[plain]);
        text.remove_prefix(std::min(plain + 1, text.size()));
    }
    return cell;
}

// Takes each line and each line end by itself: the code has no sign for the latter.
void ForEachLine(std::string_view text, const auto& take) {
    while (!text.empty()) {
        const std::size_t size = std::max<std::size_t>(1, std::min(text.find('\n'), text.size()));
        take(text.substr(0, size));
        text.remove_prefix(size);
    }
}

std::string ByteForByte(std::string_view text) {
    std::string cell;
    for (const char byte : text) {
        const bool plain = !NeedsEscape(byte) && static_cast<unsigned char>(byte) < 0x80;
        cell += plain ? std::string(1, byte) : Escape(byte);
    }
    return cell;
}

}  // namespace

CellText DecodeCell(std::string_view cell) {
    CellText decoded;
    while (!cell.empty() && decoded.fault.empty()) {
        std::size_t taken = std::min(cell.find('\\'), cell.size());
        if (taken == 0) {
            taken = AppendEscape(cell, decoded);
        } else {
            AppendPlain(cell.substr(0, taken), decoded);
        }
        cell.remove_prefix(taken);
    }
    return decoded;
}

CellText DecodeText(std::string_view utf8) {
    CellText decoded;
    ForEachLine(utf8, [&](std::string_view line) {
        if (line == "\n") {
            decoded.text += line;
        } else if (decoded.fault.empty()) {
            AppendPlain(line, decoded);
        }
    });
    return decoded;
}

std::string EncodeText(std::string_view text) {
    return quillory::QmLinesToUtf8(text);
}

// Some texts have no certain form in Unicode, such as a letter with two diacritics.
std::string EncodeCell(std::string_view text) {
    std::string cell = Readable(text);
    const CellText back = DecodeCell(cell);
    return back.fault.empty() && back.text == text ? cell : ByteForByte(text);
}

}  // namespace datatool
