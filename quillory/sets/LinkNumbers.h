#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/sets/FieldMerge.h>

#include <deque>
#include <string>

namespace quillory {

// A field 880 and the field whose text it has in another script find each other by a number, in
// their $6: 880-01 and 245-01. Fields that come into a record must not take the number of a pair
// that is there.
class LinkNumbers {
public:
    // Which fields come, and how, as MergeFields has it. Keeps the references.
    LinkNumbers(const PlaceSet& which, const MergeMode& mode) : which_(which), mode_(mode) {}

    // Gives the fields of `other` that will come into `record` the numbers under which they can be
    // there: that of an equal pair of the record, or of an equal half that waits for the other one;
    // or their own, if it is free, or belongs to the half that they make whole; or else a free one.
    // Result: false if there are not enough numbers; nothing is changed then. What `other` views
    // holds until the next call.
    bool FitInto(const Record& record, Record& other);

private:
    const PlaceSet& which_;
    const MergeMode& mode_;
    std::deque<std::string> contents_;  // of fields with other numbers
};

}  // namespace quillory
