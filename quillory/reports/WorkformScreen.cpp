#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/CodedScreen.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/reports/WorkformScreen.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kTextColumn = 8;   // of what stands below a tag
constexpr std::size_t kHelpColumn = 12;  // of what stands below a subfield
constexpr const char* kGap = "  ";

std::string Text(const Document& document, const char* key) {
    return document.contains(key) ? document.at(key).get<std::string>() : "";
}

bool Is(const Document& document, const char* key) {
    return document.contains(key) && document.at(key).get<bool>();
}

std::string Padded(std::string text, std::size_t columns) {
    const std::size_t used = Columns(text);
    if (used < columns) text.append(columns - used, ' ');
    return text;
}

std::size_t Widest(const std::vector<Document>& rows, const char* key) {
    std::size_t widest = 0;
    for (const Document& row : rows) widest = std::max(widest, Columns(Visible(Text(row, key))));
    return widest;
}

std::string BaseText(const Document& row) {
    return Visible(Text(row, "base")) + (Is(row, "base_is_missing") ? " (is not there)" : "");
}

// Prints a described workform into one text.
class Screen {
public:
    explicit Screen(const ScreenOptions& options) : options_(options) {}

    void Head(const Document& workform) {
        Strong(Visible(Text(workform, "name")));
        text_ += " (workform " + workform.at("id").dump() + ")\n";
        Fact("Material", Visible(Text(workform, "material")));
        if (workform.contains("base")) Fact("Rests on", BaseText(workform));
        if (const int copies = workform.at("holdings").get<int>(); copies > 0) {
            Fact("Holdings", std::to_string(copies));
        }
    }

    void ControlField(const CodedContent& field) {
        const std::string tag(field.decoded.place.Tag());
        Strong(tag);
        text_ += std::string(kTextColumn - tag.size(), ' ') + Visible(CodeText(field.content));
        text_ += '\n';
        AppendDecoded(field.decoded, kTextColumn, options_, text_);
    }

    void Title(const char* title) { text_ += '\n' + std::string(title) + '\n'; }

    void Field(const Document& field) {
        Strong(Text(field, "tag"));
        text_ += ' ' + Padded(Visible(Text(field, "indicators")), 2) + kGap;
        Line(options_.width, kTextColumn, text_)
            .Add(Visible(Text(field, "name")) + (Is(field, "priority") ? " (priority)" : ""));
        text_ += '\n';
        for (const Document& subfield : field.at("subfields")) Subfield(subfield);
    }

    void IndicatorTexts(const Document& indicator) {
        Strong(Text(indicator, "tag") + "/" + indicator.at("indicator").dump());
        std::string head = Visible(Text(indicator, "name"));
        if (indicator.contains("default")) {
            head += (head.empty() ? "" : ", ") + ("default " + Visible(Text(indicator, "default")));
        }
        text_ += "   " + head + '\n';
        Lines("", Text(indicator, "explanation"), kTextColumn);
    }

    std::string TakeText() { return std::move(text_); }

private:
    void Strong(const std::string& text) {
        text_ += options_.colour ? kBold + text + kPlain : text;
    }

    void Fact(const char* name, const std::string& text) {
        text_ += Padded(name, kTextColumn) + kGap + text + '\n';
    }

    void Subfield(const Document& subfield) {
        text_.append(kTextColumn, ' ');
        if (options_.colour) text_ += kCyan;
        text_ += "$" + Visible(Text(subfield, "code"));
        if (options_.colour) text_ += kPlain;
        text_ += kGap;
        std::string head = Visible(Text(subfield, "name"));
        const bool isPrompted = Is(subfield, "prompt");
        const bool isPriority = Is(subfield, "priority");
        if (isPrompted && isPriority) head += " (prompt, priority)";
        if (isPrompted != isPriority) head += isPrompted ? " (prompt)" : " (priority)";
        Line(options_.width, kHelpColumn, text_).Add(head);
        text_ += '\n';
        Lines("= ", Text(subfield, "data"), kHelpColumn);
        Lines("Rule: ", Text(subfield, "rules"), kHelpColumn);
        Lines("Reminder: ", Text(subfield, "reminders"), kHelpColumn);
        Lines("Example: ", Text(subfield, "examples"), kHelpColumn);
    }

    // Further lines of a text stand below its beginning.
    void Lines(std::string_view label, std::string_view lines, std::size_t indent) {
        while (!lines.empty()) {
            const std::size_t end = std::min(lines.find('\n'), lines.size());
            text_ += std::string(indent, ' ') + std::string(label);
            Line(options_.width, indent + label.size(), text_).Add(Visible(lines.substr(0, end)));
            text_ += '\n';
            lines.remove_prefix(std::min(end + 1, lines.size()));
            indent += label.size();
            label = {};
        }
    }

    const ScreenOptions& options_;
    std::string text_;
};

}  // namespace

std::string WorkformRowsText(const std::vector<Document>& rows, bool withBase) {
    constexpr std::size_t kIdWidth = 4;
    const std::size_t names = Widest(rows, "name");
    const std::size_t materials = Widest(rows, "material");
    std::string text;
    for (const Document& row : rows) {
        const std::string material = Visible(Text(row, "material"));
        text += Padded(row.at("id").dump(), kIdWidth) + ' ' +
                Padded(Visible(Text(row, "name")), names) + kGap;
        text += withBase ? Padded(material, materials) + kGap + BaseText(row) : material;
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

std::string WorkformScreenText(const Document& workform, const std::vector<CodedContent>& fields,
                               const ScreenOptions& screen) {
    Screen page(screen);
    page.Head(workform);
    page.Title("Control fields");
    for (const CodedContent& field : fields) page.ControlField(field);
    const auto section = [&](const char* title, const char* key, auto print) {
        if (workform.at(key).empty()) return;
        page.Title(title);
        for (const Document& item : workform.at(key)) (page.*print)(item);
    };
    section("Fields of a new record", "fields", &Screen::Field);
    section("Help for other fields", "other_fields", &Screen::Field);
    section("Indicators", "indicators", &Screen::IndicatorTexts);
    return page.TakeText();
}

}  // namespace quillory
