#pragma once

#include <quillory/exchange/RecordBuilder.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillory {

// Reads a record of MARC 21 XML without the parser, if it is written as nearly all are: elements of
// the same prefix with their own attributes alone, these in double quotation marks after one blank
// each; text of UTF-8 and the five entities of XML. Whatever else there may be, and all that is at
// fault, is left to the parser, so both read the same in any record.
class PlainXml {
public:
    // `tag` begins a record, whose elements are known to be those of MARC 21 XML: without its ">".
    void SetStartTag(std::string_view tag);

    // The end tag of such a record.
    const std::string& RecordEnd() const { return recordEnd_; }

    enum Reading { kRead, kNotPlain, kCutShort };

    // Reads white space and a record at the front of `xml`, which is cut short if the record may
    // go on, into a builder that has begun one. What of it is in the builder is of use only if it
    // could be read; then it holds no signs that a record can't hold (RecordCheck.h).
    Reading Read(std::string_view xml, RecordBuilder& builder);
    // Bytes of what was read.
    std::size_t Blanks() const { return blanks_; }
    std::size_t Size() const { return size_; }

private:
    struct Element {
        std::string start;  // as far as its attributes
        std::string end;
    };
    struct Attribute {
        std::string_view name;  // with the sign of equality and the quotation mark
        std::string_view value = {};
        bool isGiven = false;
    };

    Element ElementOf(std::string_view name) const;
    bool ReadRecord();
    bool ReadLeader();
    bool ReadControlField();
    bool ReadControlText(std::string_view tag);
    bool ReadUsualControlTag(std::string_view& tag);
    bool ReadFields();
    bool ReadDataField();
    bool ReadOtherPart();
    bool ReadUsualTag();
    bool ReadTag();
    bool ReadSubfields();
    bool ReadUsualSubfields();
    bool ReadSubfield();
    template <std::size_t kSize>
    bool ReadAttributes(std::array<Attribute, kSize>& attributes);
    bool ReadValue(Attribute& attribute);
    bool ReadText(TextBuilder& text);
    bool ReadSigns(TextBuilder& text);
    std::string_view SkipBlanks();
    bool Take(std::string_view literal);
    bool TakeIf(std::string_view literal);
    bool IsAt(std::string_view literal) const { return rest_.starts_with(literal); }
    bool StopShort();

    std::string prefix_;
    Element leader_;
    Element controlField_;
    Element dataField_;
    Element subfield_;
    // Blanks and tags as they stood last, and nearly always stand again: up to the value of a
    // data field's or a control field's tag; after the text of a subfield, up to the code of the
    // next one or the end of the field.
    std::string beforeTag_;
    std::string beforeControlTag_;
    std::string beforeCode_;
    std::string beforeNext_;
    std::string beforeEnd_;
    std::string recordStart_;
    std::string recordEnd_;

    RecordBuilder* builder_ = nullptr;
    std::string_view rest_;
    TextBuilder leaderText_;
    std::size_t blanks_ = 0;
    std::size_t size_ = 0;
    bool isCutShort_ = false;
};

}  // namespace quillory
