#include <quillory/cli/RecordScreen.h>
#include <quillory/exchange/Utf8.h>

#include <algorithm>
#include <cstdio>

namespace quillory {
namespace {

constexpr std::size_t kTextColumn = 8;
constexpr const char* kBold = "\033[1m";
constexpr const char* kCyan = "\033[36m";
constexpr const char* kPlain = "\033[0m";

bool IsSeen(const Utf8Char& c) {
    return c.valid && c.codePoint >= 0x20 && !(c.codePoint >= 0x7F && c.codePoint <= 0x9F);
}

std::string Visible(std::string_view text) {
    std::string visible;
    while (!text.empty()) {
        const Utf8Char c = DecodeUtf8(text);
        if (IsSeen(c)) {
            visible += text.substr(0, c.size);
        } else {
            for (const char byte : text.substr(0, c.size)) {
                char hex[8];
                std::snprintf(hex, sizeof hex, "<%02X>", static_cast<unsigned char>(byte));
                visible += hex;
            }
        }
        text.remove_prefix(c.size);
    }
    return visible;
}

std::size_t Columns(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const Utf8Char c = DecodeUtf8(text);
        const int width = utf8proc_charwidth(static_cast<utf8proc_int32_t>(c.codePoint));
        columns += static_cast<std::size_t>(std::max(width, 0));
        text.remove_prefix(c.size);
    }
    return columns;
}

// Sets words one behind the other and begins a new line, in the text's column, before one that
// would pass the last column. Blanks stay as they are, but for those at a line's end.
class Line {
public:
    Line(const ScreenOptions& options, std::string& text) : options_(options), text_(text) {}

    void Add(std::string_view visible) {
        while (!visible.empty()) {
            const std::size_t blanks = std::min(visible.find_first_not_of(' '), visible.size());
            const std::size_t end = std::min(visible.find(' ', blanks), visible.size());
            AddWord(visible.substr(0, blanks), visible.substr(blanks, end - blanks));
            visible.remove_prefix(end);
        }
    }

    void AddCode(std::string_view code) {
        if (column_ > kTextColumn) Add(" ");
        if (options_.colour) text_ += kCyan;
        AddWord({}, "$" + std::string(code));
        if (options_.colour) text_ += kPlain;
        text_ += ' ';
        ++column_;
    }

private:
    void AddWord(std::string_view blanks, std::string_view word) {
        const std::size_t width = blanks.size() + Columns(word);
        if (options_.width != 0 && column_ > kTextColumn && column_ + width > options_.width) {
            while (text_.ends_with(' ')) text_.pop_back();
            text_ += '\n' + std::string(kTextColumn, ' ');
            column_ = kTextColumn + width - blanks.size();
        } else {
            text_ += blanks;
            column_ += width;
        }
        text_ += word;
    }

    const ScreenOptions& options_;
    std::string& text_;
    std::size_t column_ = kTextColumn;
};

void AppendTag(std::string_view tag, std::string_view indicators, const ScreenOptions& options,
               std::string& text) {
    if (options.colour) text += kBold;
    text += Visible(tag);
    if (options.colour) text += kPlain;
    std::string shown(indicators);
    std::replace(shown.begin(), shown.end(), ' ', '#');
    shown = Visible(shown);
    shown.resize(std::max<std::size_t>(shown.size(), 2), ' ');
    text += ' ' + shown + "  ";
}

// The field that a field in another script stands for, by its link in $6.
std::string_view NamedTag(const zorby::CommFormatField& field) {
    const std::size_t link = field.content.find("\0376");
    const bool isLinked = field.tag == "880" && link != field.content.npos;
    return isLinked ? field.content.substr(link + 2, 3) : field.tag;
}

void AppendNamedSubfields(const zorby::CommFormatField& field, const ScreenOptions& options,
                          std::string& text) {
    const std::string_view tag = NamedTag(field);
    AppendTag(field.tag, field.content.substr(0, 2), options, text);
    text += options.fieldName(tag) + '\n';
    std::string_view rest = field.content.substr(std::min<std::size_t>(2, field.content.size()));
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(zorby::kDelimiter, 1), rest.size());
        const std::string_view subfield = rest.substr(0, end);
        text.append(kTextColumn, ' ');
        Line line(options, text);
        if (subfield.size() > 1 && subfield.front() == zorby::kDelimiter) {
            line.Add(Visible(options.subfieldName(tag, subfield[1])) + ": " +
                     Visible(subfield.substr(2)));
        } else {
            line.Add(Visible(subfield));
        }
        text += '\n';
        rest.remove_prefix(end);
    }
}

void AppendData(const zorby::CommFormatField& field, const ScreenOptions& options,
                std::string& text) {
    AppendTag(field.tag, field.content.substr(0, 2), options, text);
    Line line(options, text);
    std::string_view rest = field.content.substr(std::min<std::size_t>(2, field.content.size()));
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(zorby::kDelimiter, 1), rest.size());
        const std::string_view subfield = rest.substr(0, end);
        if (subfield.front() == zorby::kDelimiter) {
            line.AddCode(Visible(subfield.substr(1, 1)));
            line.Add(Visible(subfield.substr(std::min<std::size_t>(2, subfield.size()))));
        } else {
            line.Add(Visible(subfield));
        }
        rest.remove_prefix(end);
    }
    text += '\n';
}

}  // namespace

void AppendScreen(const Record& record, const ScreenOptions& options, std::string& text) {
    AppendTag("LDR", {}, options, text);
    text += Visible(record.leader) + '\n';
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.IsControlField()) {
            AppendTag(field.tag, {}, options, text);
            if (options.fieldName) {
                text += options.fieldName(field.tag) + '\n' + std::string(kTextColumn, ' ');
            }
            text += Visible(field.content) + '\n';
        } else if (options.subfieldName) {
            AppendNamedSubfields(field, options, text);
        } else {
            AppendData(field, options, text);
        }
    }
}

}  // namespace quillory
