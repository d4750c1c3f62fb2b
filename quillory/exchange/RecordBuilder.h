#pragma once

#include <quillory/exchange/Record.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Puts a record together from the parts that XML and JSON name. Each step is false if the record
// can't be so; the reason and the tag then say why.
class RecordBuilder {
public:
    void Clear();

    // Up to 24 bytes, filled with blanks. Byte 09 says UTF-8, as all text of these forms is.
    bool SetLeader(std::string_view leader);
    bool AddControlField(std::string_view tag, std::string_view text);
    // Followed by both indicators and any subfields, in any order, and EndDataField.
    bool AddDataField(std::string_view tag);
    bool SetIndicator(std::size_t which, std::string_view value);
    bool AddSubfield(std::string_view code, std::string_view text);
    bool EndDataField();
    bool End();
    bool Fail(std::string reason);

    bool Failed() const { return !reason_.empty(); }
    bool Empty() const { return leader_.empty() && fields_.empty(); }
    const std::string& Reason() const { return reason_; }
    const std::string& Tag() const { return tag_; }
    // The fields put in so far, as views that last until the next Clear.
    void Give(Record& record) const;

private:
    struct Field {
        std::array<char, 3> tag;
        std::size_t start;  // in text_
    };

    bool BeginField(std::string_view tag, bool isData);

    std::string leader_;
    std::string text_;  // contents, side by side
    std::vector<Field> fields_;
    std::array<bool, 2> haveIndicator_{};
    std::string tag_;
    std::string reason_;
};

}  // namespace quillory
