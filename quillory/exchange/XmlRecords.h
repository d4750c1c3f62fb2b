#pragma once

#include <quillory/exchange/RecordBuilder.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// A MARC record in an XML document. Offsets are bytes of the document.
struct XmlRecord {
    RecordBuilder builder;          // has the fault if the record is damaged
    std::uint64_t start = 0;        // of its element
    std::uint64_t end = 0;          // past its element
    std::uint64_t faultOffset = 0;  // of the first element at fault
};

// Finds the MARC records in an XML document that comes in pieces. Nothing outside of the document
// is ever read, and a document type is a fault.
class XmlRecords {
public:
    // `base` is where the document begins in what offsets are of.
    explicit XmlRecords(std::uint64_t base = 0);
    ~XmlRecords();
    XmlRecords(const XmlRecords&) = delete;
    XmlRecords& operator=(const XmlRecords&) = delete;

    // Takes the last `fresh` bytes of a window of the document that begins at `offset`, before any
    // record or tag that has not ended yet. No fresh bytes are the end of the document.
    void Feed(std::string_view window, std::uint64_t offset, std::size_t fresh);

    // Moves the first of the ended records into `record`.
    bool Empty() const { return ended_.empty(); }
    void Take(XmlRecord& record);

    // The start tag, without its ">", of the last record, as long as the element around it is open:
    // a record that begins so in this place is one, too. Empty if there is none.
    const std::string& RecordTag() const { return recordTag_; }
    // Whether such records may come next and be read without the parser, which is then to pass over
    // their bytes and, before it is fed again, their lines.
    bool IsBetweenRecords() const;
    void PassOver(std::uint64_t bytes);
    void PassLines(std::uint64_t lines);

    // The record that has not ended yet.
    bool InRecord() const { return depth_ != 0; }
    const XmlRecord& Unended() const { return current_; }
    // Gives up that record, of which no more is kept.
    void Abandon(FaultCode code) { current_.builder.Abandon(code); }

    // Bytes that the parser has read, up to the end of a tag.
    std::uint64_t Position() const;
    // Whether the root is a collection of records, or a record.
    bool IsMarc() const { return isMarc_; }
    // Whether the root has ended, so that no more records can come.
    bool IsOver() const { return rootSeen_ && openElements_ == 0; }

    // Reads no further.
    void Fail(Fault fault, std::uint64_t offset);
    bool Failed() const { return fault_.has_value(); }
    // In the document.
    const std::optional<ItemFault>& WhatFailed() const { return fault_; }

private:
    struct Callbacks;
    class Parser;
    enum Element : std::int32_t { kRecord, kLeader, kControlField, kDataField, kSubfield, kOther };

    void StopParser();
    bool IsWithinLongTag() const;
    void FailMalformed(std::string words);
    void Begin(Element element, const unsigned char** attributes, int count);
    void BeginPart(Element element, const unsigned char** attributes, int count);
    void BeginRecord();
    void End();
    void EndPart(Element element);
    void AddText(std::string_view text);
    void KeepTag();
    void Mark(bool sound);
    std::uint64_t TagStart() const;

    std::uint64_t base_;
    std::unique_ptr<Parser> parser_;
    std::deque<XmlRecord> ended_;
    XmlRecord current_;
    std::size_t depth_ = 0;  // of elements in the record, itself included
    bool isMarc_ = false;
    bool rootSeen_ = false;
    std::size_t openElements_ = 0;
    Element within_ = kRecord;  // the element that is open, while the record is sound
    std::size_t foreign_ = 0;   // depth of an element that is passed over, 0 for none
    std::string tag_;           // of a control field
    std::string code_;
    std::string recordTag_;   // of the last record; empty once the element around it has ended
    std::size_t around_ = 0;  // elements around that record
    std::string text_;
    std::string_view window_;
    std::uint64_t windowOffset_ = 0;
    std::uint64_t fed_ = 0;
    bool atEnd_ = false;
    std::optional<ItemFault> fault_;
};

}  // namespace quillory
