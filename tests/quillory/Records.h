#pragma once

#include <quillory/exchange/Record.h>

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A record as a test writes and reads it: for each field its tag and content, such as
// "24510\037aTitle". "LDR" and 24 bytes is the leader.
using Lines = std::vector<std::string>;

inline const std::string kLeader = "00000nam a2200000 a 4500";
inline const std::string kLeaderLine = "LDR" + kLeader;

inline Lines LinesOf(const Record& record) {
    Lines lines{"LDR" + std::string(record.leader)};
    for (const auto& field : record.fields) {
        lines.push_back(std::string(field.tag).append(field.content));
    }
    return lines;
}

// A record with the bytes that it views. Without a leader of its own it has kLeader. Its lines may
// have another sign for the delimiter.
class TestRecord {
public:
    explicit TestRecord(const Lines& lines = {}, char delimiter = '\037') : delimiter_(delimiter) {
        record.leader = kLeader;
        for (const std::string& line : lines) Add(line);
    }
    TestRecord(const TestRecord&) = delete;
    TestRecord& operator=(const TestRecord&) = delete;

    void Add(const std::string& line) {
        std::string& held = lines_.emplace_back(line);
        std::ranges::replace(held, delimiter_, '\037');
        const std::string_view text = held;
        if (text.starts_with("LDR")) {
            record.leader = text.substr(3);
        } else {
            record.fields.push_back({text.substr(0, 3), text.substr(3)});
        }
    }

    Record record;

private:
    char delimiter_;
    std::deque<std::string> lines_;
};

// Lines divided by line ends.
inline Lines Divided(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        lines.emplace_back(line);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return lines;
}

// The fields of a record, divided by line ends and with "$" for the delimiter.
inline std::string FieldsOf(const Record& record) {
    std::string text;
    for (const auto& field : record.fields) {
        text += text.empty() ? "" : "\n";
        text.append(field.tag).append(field.content);
    }
    std::ranges::replace(text, '\037', '$');
    return text;
}

// In the communications format.
inline std::string MarcOf(const Lines& lines) {
    const TestRecord test(lines);
    zorby::CommFormatWriter writer;
    writer.SetLeader(test.record.leader);
    for (const auto& field : test.record.fields) writer.AddField(field.tag, field.content);
    std::string bytes;
    writer.Finish(bytes);
    return bytes;
}

}  // namespace quillory
