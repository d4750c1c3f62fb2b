#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The record under construction: an ordered list of fields. A field is its tag in three digits, for
// a tag of 10 or more two indicators, then subfields as delimiter, code and text, or the text of a
// control field. A field with the tag 000 is the leader. A field is addressed by its tag and its
// occurrence, counted from 1. The list stores and writes the bytes that it is given, whatever their
// character code.
//
// FieldNew keeps the list in the order of tags; inside 5XX, and inside 6XX, fields stay as they
// were added. Indices count from 0. An int result is 1 for success and 0 for failure unless said
// otherwise; a failure changes nothing.
class ZORBY_EXPORT CPmarc {
public:
    class const_iterator;

    CPmarc() = default;
    CPmarc(const CPmarc&) = default;
    CPmarc(CPmarc&&) noexcept = default;
    CPmarc& operator=(const CPmarc&) = default;
    CPmarc& operator=(CPmarc&&) noexcept = default;
    virtual ~CPmarc();

    // Adds an empty field at its place and gives its occurrence. Result: its index.
    int FieldNew(int tag, int& occurrence);
    int FieldExists(int tag, int occurrence) const;
    // The index of a field, or -1.
    int FieldGetIndexForTagOccurance(unsigned tag, int occurrence) const;

    // Fails for a control field. An underscore stands for a blank.
    int FieldSetIndicators(unsigned tag, int occurrence, char first, char second);

    // Adds a subfield; a code of 0 adds the text alone. A separator other than 0 splits the text
    // into subfields with the same code, stripped of white space, unless the text begins with it.
    int FieldAddSubfield(unsigned tag, int occurrence, char code, std::string_view text,
                         char separator);

    // Adds to the text of a control field, and makes the field if there is none of that occurrence.
    // `dotsToBlanks` turns each 0xB7 of the field into a blank. Fails for an empty text.
    int FieldAddControlField(unsigned tag, int occurrence, std::string_view text, int dotsToBlanks);

    // Adds one element of data: to a new field, or to the first with that tag. The dot 0xB7 and the
    // underscore stand for a blank indicator.
    void AstaAdd(unsigned tag, char first, char second, char code, int newField,
                 std::string_view text);

    // Appends all fields to `text`, each with the line end 0x0D 0x0A.
    void GetRecordAsCString(std::string& text) const;

    // The record in the communications format, up to its first zero byte. Fields for which there is
    // no room are left out, and a record that is still too long loses data at its end. Empty if
    // there is no field but the leader.
    void ConvertToUSMARCCommFormat(std::string& record) const;

    // The record as old MicroLIF text.
    void ConvertToOldMicrolif(std::string& text) const;
    // Appends the field of one line of old MicroLIF, without sorting. Bytes of the line that are no
    // digits of the tag become zeros in place. A line without content adds nothing.
    void AddOldMicrolifField(char* line, int length);

    // Appends a field as it is, without sorting. `tag` is three bytes.
    void FieldAppend(std::string_view tag, std::string_view content);
    void Clear();

    std::size_t FieldCount() const;
    const_iterator begin() const;
    const_iterator end() const;

private:
    // Neighbours in the list that FieldNew puts in one place: fields of one tag, or of 5XX, or of
    // 6XX.
    struct Run {
        std::uint32_t place = 0;
        std::vector<std::string> fields;
        // For each tag of a mixed run, the positions of its fields.
        struct Positions {
            std::uint32_t tag = 0;
            std::vector<std::uint32_t> at;
        };
        std::vector<Positions> tags;

        void Append(std::uint32_t tag, std::string_view tagBytes, std::string_view content);
        std::size_t Count(std::uint32_t tag) const;
        std::size_t Position(std::uint32_t tag, std::size_t occurrence) const;
        const Positions* PositionsOf(std::uint32_t tag) const;
    };

    struct Place {
        Run* run = nullptr;
        std::size_t position = 0;
        std::size_t index = 0;
    };

    Place Find(unsigned tag, int occurrence);
    std::string* FindField(unsigned tag, int occurrence);
    void WriteCommFormat(std::string& record) const;
    int AddOneSubfield(unsigned tag, int occurrence, char code, std::string_view text);

    std::vector<Run> runs_;
};

// Walks the fields in list order. Any change of the record ends its use.
class CPmarc::const_iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = std::string;
    using difference_type = std::ptrdiff_t;
    using pointer = const std::string*;
    using reference = const std::string&;

    const_iterator() = default;
    reference operator*() const { return run_->fields[position_]; }
    pointer operator->() const { return &run_->fields[position_]; }
    const_iterator& operator++() {
        if (++position_ == run_->fields.size()) {
            ++run_;
            position_ = 0;
        }
        return *this;
    }
    const_iterator operator++(int) {
        const const_iterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const const_iterator&) const = default;

private:
    friend class CPmarc;
    explicit const_iterator(const Run* run) : run_(run) {}

    const Run* run_ = nullptr;
    std::size_t position_ = 0;
};

inline CPmarc::const_iterator CPmarc::begin() const {
    return const_iterator(runs_.data());
}
inline CPmarc::const_iterator CPmarc::end() const {
    return const_iterator(runs_.data() + runs_.size());
}

}  // namespace zorby
