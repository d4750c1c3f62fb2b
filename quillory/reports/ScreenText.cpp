#include <quillory/reports/ScreenText.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>
#include <sstream>

namespace quillory {

std::size_t Columns(std::string_view text) {
    const char* const end = text.data() + text.size();
    std::size_t columns = 0;
    for (;;) {
        const std::size_t plain = zorby::PlainRunLength(text.data(), end);
        columns += plain;
        text.remove_prefix(plain);
        if (text.empty()) return columns;
        const Utf8Char c = DecodeUtf8(text);
        const int width = utf8proc_charwidth(static_cast<utf8proc_int32_t>(c.codePoint));
        columns += static_cast<std::size_t>(std::max(width, 0));
        text.remove_prefix(c.size);
    }
}

std::string Padded(std::string text, std::size_t columns) {
    text.append(columns - std::min(columns, Columns(text)), ' ');
    return text;
}

std::string RightAligned(const std::string& text, std::size_t columns) {
    return std::string(columns - std::min(columns, Columns(text)), ' ') + text;
}

void Line::Add(std::string_view visible) {
    while (!visible.empty()) {
        const std::size_t blanks = std::min(visible.find_first_not_of(' '), visible.size());
        const std::size_t end = std::min(visible.find(' ', blanks), visible.size());
        AddWord(visible.substr(0, blanks), visible.substr(blanks, end - blanks));
        visible.remove_prefix(end);
    }
}

void Line::AddCode(std::string_view code, bool colour) {
    if (column_ > indent_) Add(" ");
    if (colour) text_ += kCyan;
    AddWord({}, "$" + std::string(code));
    if (colour) text_ += kPlain;
    text_ += ' ';
    ++column_;
}

void Line::AddWord(std::string_view blanks, std::string_view word) {
    const std::size_t width = blanks.size() + Columns(word);
    if (width_ != 0 && column_ > indent_ && column_ + width > width_) {
        while (text_.ends_with(' ')) text_.pop_back();
        text_ += '\n' + std::string(indent_, ' ');
        column_ = indent_ + width - blanks.size();
    } else {
        text_ += blanks;
        column_ += width;
    }
    text_ += word;
}

std::string Paragraph(const std::string& words, std::size_t indent) {
    constexpr std::size_t kWidth = 76;
    std::string text(indent, ' ');
    Line line(kWidth, indent, text);
    std::istringstream stream(words);
    std::string gap;
    for (std::string word; stream >> word; gap = " ") line.Add(gap + word);
    return text + "\n";
}

}  // namespace quillory
