#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The record under construction: an ordered list of fields. A field is its tag in three digits,
// followed by the text of a control field or, for tags from 10 on, by two indicators and subfields
// (delimiter, code and text). A field with the tag 000 is the leader. A field is addressed by its
// tag and its occurrence, counted from 1. The list stores and writes the bytes that it is given,
// whatever their character code.
//
// FieldNew keeps the list in the order of tags, except that the fields 5XX stay in the order in
// which they were added, and so do the fields 6XX. Indices count from 0. An int result is 1 for
// success and 0 for failure unless said otherwise; a failure changes nothing. Threads may share a
// record as long as all of them only call const operations.
class ZORBY_EXPORT CPmarc {
public:
    class const_iterator;

    CPmarc() = default;
    CPmarc(const CPmarc&) = default;
    CPmarc(CPmarc&& other) noexcept;
    CPmarc& operator=(const CPmarc&) = default;
    CPmarc& operator=(CPmarc&& other) noexcept;
    virtual ~CPmarc();

    // Adds an empty field at its place, gives its occurrence and returns its index.
    int FieldNew(int tag, int& occurrence);
    int FieldExists(int tag, int occurrence) const;
    // Returns the index of a field, or -1.
    int FieldGetIndexForTagOccurance(unsigned tag, int occurrence) const;

    // Fails for a control field. An underscore stands for a blank.
    int FieldSetIndicators(unsigned tag, int occurrence, char first, char second);

    // Adds a subfield. With a code of 0, only the text is added. A separator other than 0 splits
    // the text into several subfields with the same code, without white space at their ends, unless
    // the text begins with the separator.
    int FieldAddSubfield(unsigned tag, int occurrence, char code, std::string_view text,
                         char separator);

    // Appends to the text of a control field, and makes the field if it doesn't exist. If
    // `dotsToBlanks` is nonzero, each 0xB7 in the field becomes a blank. Fails for an empty text.
    int FieldAddControlField(unsigned tag, int occurrence, std::string_view text, int dotsToBlanks);

    // Adds one element of data, to a new field or to the first field with that tag. The dot 0xB7
    // and the underscore stand for a blank indicator.
    void AstaAdd(unsigned tag, char first, char second, char code, int newField,
                 std::string_view text);

    // Appends all fields to `text`, each with the line end 0x0D 0x0A.
    void GetRecordAsCString(std::string& text) const;

    // Gives the record in the communications format, up to its first zero byte. Fields for which
    // there is no room are left out, and a record that is still too long loses data at its end. The
    // result is empty if there is no field except the leader.
    void ConvertToUSMARCCommFormat(std::string& record) const;

    // Gives the record as old MicroLIF text.
    void ConvertToOldMicrolif(std::string& text) const;
    // Appends the field in one line of old MicroLIF, without sorting. Bytes in the place of the tag
    // that are not digits become zeros in `line`. A line without content adds nothing.
    void AddOldMicrolifField(char* line, int length);

    // Appends a field as it is, without sorting. `tag` has three bytes.
    void FieldAppend(std::string_view tag, std::string_view content);
    void Clear();

    std::size_t FieldCount() const;
    const_iterator begin() const;
    const_iterator end() const;

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    struct Field {
        std::string text;
        std::uint32_t next = kNone;  // the field after it in its run
    };
    struct TagCount {
        std::uint32_t tag = 0;
        std::uint32_t count = 0;
    };
    // Neighbours in the list that FieldNew keeps together: the fields of one tag, of 5XX, or of
    // 6XX.
    struct Run {
        std::uint32_t place = 0;
        std::uint32_t first = kNone;
        std::uint32_t last = kNone;
        std::uint32_t count = 0;
        std::vector<TagCount> tags;  // only in a run of several tags

        std::uint32_t Count(std::uint32_t tag) const;
        void CountOneMore(std::uint32_t tag);
    };
    // A field that was found, and where it is.
    struct Place {
        unsigned tag = 0;
        int occurrence = 0;  // 0 if there is none
        std::uint32_t field = kNone;
        int index = -1;  // in the list
    };
    struct Gap {
        std::size_t run = 0;  // the first run after the gap
        std::size_t index = 0;
        std::size_t sameTag = 0;  // fields with the tag before the gap
    };

    void InsertRun(std::size_t at, std::uint32_t place);
    Gap FindGap(std::uint32_t place, std::uint32_t tag) const;
    std::uint32_t Append(std::size_t run, std::string_view tag, std::string_view content);
    Place Search(unsigned tag, int occurrence) const;
    Place FindFurther(const Place& from, int steps) const;
    std::string* FindField(unsigned tag, int occurrence);
    void WriteCommFormat(std::string& record) const;
    int AddOneSubfield(unsigned tag, int occurrence, char code, std::string_view text);

    std::vector<Field> fields_;  // in the order in which they were made
    std::vector<Run> runs_;      // in list order
    bool sorted_ = true;         // the places of the runs ascend
    Place last_;                 // the field made or changed last; most calls are about it
};

// Walks through the fields in list order. Any change of the record invalidates it.
class CPmarc::const_iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = std::string;
    using difference_type = std::ptrdiff_t;
    using pointer = const std::string*;
    using reference = const std::string&;

    const_iterator() = default;
    reference operator*() const { return record_->fields_[field_].text; }
    pointer operator->() const { return &record_->fields_[field_].text; }
    const_iterator& operator++() {
        field_ = record_->fields_[field_].next;
        if (field_ == kNone) EnterRun(run_ + 1);
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
    const_iterator(const CPmarc* record, std::size_t run) : record_(record) { EnterRun(run); }

    void EnterRun(std::size_t run) {
        run_ = run;
        field_ = run < record_->runs_.size() ? record_->runs_[run].first : kNone;
    }

    const CPmarc* record_ = nullptr;
    std::size_t run_ = 0;
    std::uint32_t field_ = kNone;
};

inline CPmarc::const_iterator CPmarc::begin() const {
    return {this, 0};
}
inline CPmarc::const_iterator CPmarc::end() const {
    return {this, runs_.size()};
}

}  // namespace zorby
