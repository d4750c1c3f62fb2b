#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/CodedScreen.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/reports/WorkformDocument.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kWorkformColumn = 8;  // of what stands below a tag
constexpr std::size_t kHelpColumn = 12;     // of what stands below a subfield
constexpr const char* kWorkformGap = "  ";

// Prints a described workform into one text.
class Screen {
public:
    explicit Screen(const ScreenOptions& options) : options_(options) {}

    void Head(const WorkformDocument& workform) {
        const WorkformRow& row = workform.row;
        Strong(Visible(row.name));
        text_ += " (workform " + std::to_string(row.id) + ")\n";
        Fact("Material", Visible(row.material));
        if (row.base) Fact("Based on", BaseText(row));
        if (workform.holdings > 0) Fact("Holdings", std::to_string(workform.holdings));
    }

    void ControlField(const WorkformControlField& field) {
        const std::string tag(field.decoded.place.Tag());
        Strong(tag);
        text_ += std::string(kWorkformColumn - tag.size(), ' ') + Visible(CodeText(field.content));
        text_ += '\n';
        AppendDecoded(field.decoded, kWorkformColumn, options_, text_);
    }

    void Field(const WorkformField& field) {
        Strong(field.tag);
        text_ += ' ' + Padded(Visible(field.indicators.value_or("")), 2) + kWorkformGap;
        Line(options_.width, kWorkformColumn, text_)
            .Add(Visible(field.name) + (field.isPriority ? " (priority)" : ""));
        text_ += '\n';
        for (const WorkformSubfield& subfield : field.subfields) Subfield(subfield);
    }

    void Indicator(const WorkformIndicator& indicator) {
        Strong(indicator.tag + "/" + std::to_string(indicator.indicator));
        std::string head = Visible(indicator.name);
        if (!indicator.defaultValue.empty()) {
            head += (head.empty() ? "" : ", ") + ("default " + Visible(indicator.defaultValue));
        }
        text_ += "   " + head + '\n';
        Lines("", indicator.explanation, kWorkformColumn);
    }

    template <class Items, class Print>
    void Section(const char* title, const Items& items, Print print) {
        if (items.empty()) return;
        text_ += '\n' + std::string(title) + '\n';
        for (const auto& item : items) (this->*print)(item);
    }

    std::string TakeText() { return std::move(text_); }

private:
    void Strong(const std::string& text) {
        text_ += options_.colour ? kBold + text + kPlain : text;
    }

    void Fact(const char* name, const std::string& text) {
        text_ += Padded(name, kWorkformColumn) + kWorkformGap + text + '\n';
    }

    void Subfield(const WorkformSubfield& subfield) {
        text_.append(kWorkformColumn, ' ');
        if (options_.colour) text_ += kCyan;
        text_ += "$" + Visible(subfield.code);
        if (options_.colour) text_ += kPlain;
        text_ += kWorkformGap;
        Line(options_.width, kHelpColumn, text_).Add(Visible(subfield.name) + Marks(subfield));
        text_ += '\n';
        Lines("= ", subfield.data.value_or(""), kHelpColumn);
        Lines("Rule: ", subfield.rules, kHelpColumn);
        Lines("Reminder: ", subfield.reminders, kHelpColumn);
        Lines("Example: ", subfield.examples, kHelpColumn);
    }

    static const char* Marks(const WorkformSubfield& subfield) {
        if (subfield.isPrompted) return subfield.isPriority ? " (prompt, priority)" : " (prompt)";
        return subfield.isPriority ? " (priority)" : "";
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

std::string ToText(const WorkformDocument& workform, const ScreenOptions& screen) {
    Screen page(screen);
    page.Head(workform);
    page.Section("Control fields", workform.controlFields, &Screen::ControlField);
    page.Section("Fields of a new record", workform.fields, &Screen::Field);
    page.Section("Help for other fields", workform.otherFields, &Screen::Field);
    page.Section("Indicators", workform.indicators, &Screen::Indicator);
    return page.TakeText();
}

}  // namespace quillory
