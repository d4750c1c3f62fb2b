#pragma once

#include <quillory/edits/EditSession.h>
#include <quillory/reports/RecordListing.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// A file, or the store, with what a person does to its records, each of which keeps all that can be
// undone.
class Document {
public:
    // The path of the store is that of its file. Throws FileError.
    explicit Document(const std::string& path);
    // New records, which have no file yet.
    Document();

    RecordSet& File() { return *file_; }
    RecordListing& Listing() { return listing_; }

    // Null for a record that can't be read. The first step of a session holds the record, so that
    // nobody else changes it; where that is refused, so is the step. Throws FileError.
    EditSession* SessionOf(std::size_t record);
    // What is done about a step that was refused: to which record, what it would be, and why.
    using Refused =
        std::function<void(std::size_t record, const RecordState& wanted, const std::string& why)>;
    void WhenRefused(Refused tell) { refused_ = std::move(tell); }
    // Whether the record may become another one, as for a step.
    bool MayBecome(std::size_t record, const RecordState& wanted);
    // What a session has become is what the list shows and the file will have. Result: what the
    // record's character set can't carry.
    Losses Take(std::size_t record);
    // The sign of a record as the file has it, by which it is known in a journal. Throws FileError.
    std::uint64_t OriginOf(std::size_t record);
    // A record that is left and was not touched needs no memory.
    void Leave(std::size_t record);
    // The sessions of records that others have saved since, without changes here.
    std::vector<std::size_t> Outdated() const;
    // The record is read anew when it is asked for. Result: its session so far, or null.
    std::unique_ptr<EditSession> Forget(std::size_t record);

    bool IsUntitled() const { return file_->Path().empty(); }
    bool IsStore() const { return file_->IsStore(); }
    // A record in UTF-8 that comes after all others, in the character set of the last one. Result:
    // its index. Reads the whole file before. Throws FileError.
    std::size_t Add(const Record& record);
    // Takes back a record that is new.
    void RemoveLast();

    bool IsChanged() const { return file_->Changes() > 0; }
    // The first record that could not be read again, and why.
    struct Obstacle {
        std::size_t record;
        Fault fault;
    };
    std::optional<Obstacle> WhatStopsSaving();
    // Throws FileError, and nothing is lost then.
    void Save();
    // Writes all records into another file, in the form of its name. Result: what there is to say
    // of it, such as records that are damaged and were left out. Throws FileError and UsageError.
    std::string SaveAs(const std::string& path);

private:
    Charset CharsetOfFile() const;
    bool IsMarc8();

    std::unique_ptr<RecordSet> file_;
    RecordListing listing_;
    std::map<std::size_t, std::unique_ptr<EditSession>> sessions_;
    std::map<std::size_t, std::uint64_t> origins_;
    Refused refused_;
    Item item_;
};

}  // namespace quillory
