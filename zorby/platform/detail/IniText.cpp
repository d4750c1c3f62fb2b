#include <zorby/platform/detail/IniText.h>

#include <algorithm>

namespace zorby {

namespace {

IniLine Classify(std::string_view content, std::string_view lineEnd) {
    if (content.starts_with('[') && content.ends_with(']')) {
        const std::string_view name = content.substr(1, content.size() - 2);
        return {IniLineKind::kSection, name, {}, content, lineEnd};
    }
    const std::size_t equals = content.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return {IniLineKind::kOther, {}, {}, content, lineEnd};
    }
    return {IniLineKind::kValue, content.substr(0, equals), content.substr(equals + 1), content,
            lineEnd};
}

IniLine TakeLine(std::string_view& rest) {
    const std::size_t lineFeed = rest.find('\n');
    std::size_t end = std::min(lineFeed, rest.size());
    const std::size_t next = std::min(end + 1, rest.size());
    if (end > 0 && rest[end - 1] == '\r') --end;
    const IniLine line = Classify(rest.substr(0, end), rest.substr(end, next - end));
    rest.remove_prefix(next);
    return line;
}

// The place of a key in a section, or the place where a new one would go.
struct KeyPlace {
    std::vector<IniLine> keyLines;
    std::optional<IniLine> insertAfter;  // last line of the section that isn't blank
};

KeyPlace FindKey(const std::vector<IniLine>& lines, std::string_view section,
                 std::string_view key) {
    KeyPlace place;
    bool inside = false;
    for (const IniLine& line : lines) {
        if (line.kind == IniLineKind::kSection) inside = line.name == section;
        if (!inside) continue;
        if (line.content.find_first_not_of(" \t") != std::string_view::npos) {
            place.insertAfter = line;
        }
        if (line.kind == IniLineKind::kValue && line.name == key) place.keyLines.push_back(line);
    }
    return place;
}

std::string ValueLine(std::string_view key, std::string_view value) {
    return std::string(key).append("=").append(value);
}

std::string SectionLine(std::string_view section) {
    return std::string("[").append(section).append("]");
}

// Carries out a change on a copy of the text, by the places of the lines in the original.
class IniEdit {
public:
    explicit IniEdit(std::string_view text) : original_(text), changed_(text) {}

    void Remove(const std::vector<IniLine>& lines) {
        for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
            changed_.erase(Start(*line), line->content.size() + line->lineEnd.size());
        }
    }

    void Replace(const IniLine& line, std::string_view content) {
        changed_.replace(Start(line), line.content.size(), content);
    }

    void InsertAfter(const IniLine& line, const std::vector<std::string>& contents) {
        std::string block;
        if (line.lineEnd.empty()) block += LineEnd();
        if (line.lineEnd == "\r") block += '\n';
        for (const std::string& content : contents) block.append(content).append(LineEnd());
        changed_.insert(Start(line) + line.content.size() + line.lineEnd.size(), block);
    }

    const std::string& Text() const { return changed_; }

private:
    std::size_t Start(const IniLine& line) const {
        return static_cast<std::size_t>(line.content.data() - original_.data());
    }

    std::string_view LineEnd() const {
        const std::size_t lineFeed = original_.find('\n');
        const bool isCrLf =
            lineFeed != std::string_view::npos && lineFeed > 0 && original_[lineFeed - 1] == '\r';
        return isCrLf ? "\r\n" : "\n";
    }

    std::string_view original_;
    std::string changed_;
};

}  // namespace

std::vector<IniLine> IniLines(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    std::vector<IniLine> lines;
    while (!text.empty()) lines.push_back(TakeLine(text));
    return lines;
}

std::optional<std::string_view> IniValue(std::string_view text, std::string_view section,
                                         std::string_view key) {
    const KeyPlace place = FindKey(IniLines(text), section, key);
    if (place.keyLines.empty()) return std::nullopt;
    return place.keyLines.back().value;
}

bool IniCanHold(std::string_view section, std::string_view key, const char* value) {
    const std::string_view wanted = value ? value : "";
    const std::string text = SectionLine(section) + "\n" + ValueLine(key, wanted) + "\n";
    return IniLines(text).size() == 2 && IniValue(text, section, key) == wanted;
}

std::string IniTextWith(std::string_view text, std::string_view section, std::string_view key,
                        const char* value) {
    const std::vector<IniLine> lines = IniLines(text);
    const KeyPlace place = FindKey(lines, section, key);
    IniEdit edit(text);
    if (!value) {
        edit.Remove(place.keyLines);
    } else if (!place.keyLines.empty()) {
        edit.Replace(place.keyLines.back(), ValueLine(key, value));
    } else if (place.insertAfter) {
        edit.InsertAfter(*place.insertAfter, {ValueLine(key, value)});
    } else if (!lines.empty()) {
        edit.InsertAfter(lines.back(), {SectionLine(section), ValueLine(key, value)});
    } else {
        return SectionLine(section) + "\n" + ValueLine(key, value) + "\n";
    }
    return edit.Text();
}

}  // namespace zorby
