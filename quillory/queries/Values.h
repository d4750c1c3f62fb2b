#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/queries/PlaceSet.h>
#include <quillory/text/TextConverter.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// A value of a record: bytes that a place names.
struct ValueSlice {
    Place place;             // with the occurrence of the field, from 1
    std::string_view bytes;  // of the record, in its character set
    bool isField = false;    // bytes may hold several subfields, with their delimiters and codes
    bool isCoded = false;    // an indicator, or positions
    std::string_view field = {};  // the whole content that the bytes are of
};

// How often each tag came, as fields are passed in their order.
class TagOccurrences {
public:
    // The occurrence of the field that comes next, from 1.
    std::uint32_t Next(std::string_view tag);

private:
    using Tag = std::array<char, kTagSize>;
    struct Counted {
        Tag tag;
        std::uint32_t count;
    };

    std::vector<Counted> ascending_;  // tags that were each greater than all before, as most are
    std::map<Tag, std::uint32_t> others_;
};

// The text of a whole field from its bytes: the texts of subfields with a blank between any two,
// but for $6, which is no text but a link. Result: a view of `slice` if it is one text, or of
// `joined`.
std::string_view JoinedText(std::string_view slice, std::string& joined);

namespace values {

// The bytes that a pattern means of a field, or of the leader, if it means other than subfields;
// false if there are none.
bool SliceOf(const PlacePattern& pattern, std::string_view leader,
             const zorby::CommFormatField& field, ValueSlice& slice);
bool SliceOfLeader(const PlacePattern& pattern, std::string_view leader, ValueSlice& slice);

template <class Test>
bool AnySliceOf(const PlacePattern& pattern, std::string_view leader,
                const zorby::CommFormatField& field, ValueSlice& slice, Test& test);

}  // namespace values

// Whether `test(const ValueSlice&)` holds of a value of the places in a record; the values after
// that one are not looked at.
template <class Test>
bool AnySlice(const Record& record, const PlaceSet& places, Test&& test);

// Calls `take(const ValueSlice&)` for each value of the places in a record: that of the leader
// first, then field after field. The values of one field come pattern after pattern, those of one
// pattern in the order of the field. A value that several patterns name comes for each of them.
//
//   bare tag      one value a field: without its indicators, whatever it is made of
//   subfields     one value for each subfield of the codes
//   indicator     one byte, of data fields that are long enough
//   positions     as many bytes of them as the field has, if it has any
template <class Take>
void ForEachSlice(const Record& record, const PlaceSet& places, Take&& take) {
    AnySlice(record, places, [&take](const ValueSlice& slice) {
        take(slice);
        return false;
    });
}

// As ForEachSlice, with `take(const Place&, std::string_view value)`: a whole field comes as
// JoinedText. The bytes are in the record's character set. A view holds until `take` returns.
template <class Take>
void ForEachValue(const Record& record, const PlaceSet& places, Take&& take) {
    std::string joined;
    ForEachSlice(record, places, [&](const ValueSlice& slice) {
        take(slice.place, slice.isField ? JoinedText(slice.bytes, joined) : slice.bytes);
    });
}

// Gives the values of records as UTF-8 in normal form C, whatever character set a record is in.
// Text that is ASCII, as most is, is not copied. Bytes that are no character come as U+FFFD.
class ValueReader {
public:
    // The records' character set; auto: each record is asked when a value is met that is not ASCII.
    explicit ValueReader(Charset charset = kCharsetAuto) : charset_(charset) {}

    // Calls `take(const Place&, std::string_view utf8)`. A view holds until `take` returns.
    template <class Take>
    void ForEach(const Record& record, const PlaceSet& places, Take&& take) {
        Begin();
        ForEachSlice(record, places,
                     [&](const ValueSlice& slice) { take(slice.place, TextOf(record, slice)); });
    }

    // What a record is known by from its last value is forgotten: to be called before TextOf is
    // asked of another record.
    void Begin() {
        current_ = charset_;
        hasReplaced_ = false;
    }
    // Whether a text since Begin had bytes that are no character.
    bool HasReplaced() const { return hasReplaced_; }
    // The value's text. The view holds until the next call, or as long as the record.
    std::string_view TextOf(const Record& record, const ValueSlice& slice);

private:
    std::string_view Converted(const Record& record, std::string_view bytes);

    Charset charset_;
    Charset current_ = kCharsetAuto;
    bool hasReplaced_ = false;
    std::array<std::unique_ptr<TextConverter>, 4> converters_;  // by what they read
    std::string utf8_;
    std::string joined_;
    Losses losses_;
};

namespace values {

template <class Test>
bool AnySliceOf(const PlacePattern& pattern, std::string_view leader,
                const zorby::CommFormatField& field, ValueSlice& slice, Test& test) {
    slice.isCoded = pattern.IsCoded();
    slice.isField = false;
    if (!pattern.HasCodes()) {
        return SliceOf(pattern, leader, field, slice) && test(std::as_const(slice));
    }
    bool any = false;
    ForEachSubfield(field.content, [&](char code, std::string_view text) {
        if (any || !pattern.HasCode(code)) return;
        slice.place.code = code;
        slice.bytes = text;
        any = test(std::as_const(slice));
    });
    return any;
}

}  // namespace values

template <class Test>
bool AnySlice(const Record& record, const PlaceSet& places, Test&& test) {
    ValueSlice slice;
    for (const PlacePattern& pattern : places.patterns) {
        if (values::SliceOfLeader(pattern, record.leader, slice) && test(std::as_const(slice))) {
            return true;
        }
    }
    TagOccurrences occurrences;
    for (const zorby::CommFormatField& field : record.fields) {
        std::uint32_t occurrence = 0;
        for (const PlacePattern& pattern : places.patterns) {
            if (!pattern.Covers(field.tag)) continue;
            if (occurrence == 0) occurrence = occurrences.Next(field.tag);
            const std::uint32_t wanted = pattern.place.occurrence;
            if (wanted != 0 && wanted != occurrence) continue;
            slice.place = Place::OfField(field.tag, occurrence);
            slice.field = field.content;
            if (values::AnySliceOf(pattern, record.leader, field, slice, test)) return true;
        }
    }
    return false;
}

}  // namespace quillory
