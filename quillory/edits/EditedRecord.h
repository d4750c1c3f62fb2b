#pragma once

#include <quillory/edits/Change.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/TextConverter.h>

#include <array>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Thrown by a step that can't be carried out in a record, which stays as it is then.
class EditRefused : public std::exception {
public:
    explicit EditRefused(Fault fault) : fault_(std::move(fault)) {}
    const char* what() const noexcept override { return "edit refused"; }
    const Fault& Why() const { return fault_; }

private:
    Fault fault_;
};

// A record under edits. Contents of fields are UTF-8, with indicators and delimiters as in
// ISO 2709, whatever the record is in. What no step touches keeps its bytes. One object serves
// record after record.
class EditedRecord {
public:
    struct Options {
        Charset charset = kCharsetAuto;  // that records are in; auto: each is asked
        std::optional<NormalForm> form;  // of UTF-8 that is put in; as it comes if there is none
    };
    explicit EditedRecord(Options options) : options_(options) {}

    // Keeps the reference and its views until the next call.
    void Begin(const Record& record);
    // The steps that follow are named so in what changes.
    void BeginStep(std::string_view operation) { operation_ = operation; }

    std::string_view Leader() const { return leader_; }
    std::size_t Size() const { return fields_.size(); }
    // The views last until the next Begin.
    std::string_view TagOf(std::size_t index) const { return fields_[index].tag; }
    std::string_view ContentOf(std::size_t index);
    bool IsControl(std::size_t index) const;
    Place PlaceOf(std::size_t index);
    // Whether the field is new, or has another tag or content than it came with.
    bool IsTouched(std::size_t index) const {
        return fields_[index].isChanged || fields_[index].isRenamed;
    }

    void SetLeader(std::string leader);
    void SetTag(std::size_t index, std::string_view tag);
    // Throws EditRefused for a content that no form could hold.
    void SetContent(std::size_t index, std::string content);
    // Before the field at this index.
    void Insert(std::size_t index, std::string_view tag, std::string content);
    void Remove(std::size_t index);
    // The field at order[i] comes to i.
    void Reorder(const std::vector<std::size_t>& order);

    bool IsChanged() const { return !changes_.empty(); }
    const std::vector<Change>& Changes() const { return changes_; }

    // The record as it is now, in UTF-8 but for what its leader says. Holds until the next change.
    const Record& InUtf8();
    // As `InUtf8`, without other fields than this one.
    const Record& InUtf8(std::size_t index);
    // The record as it was begun, and the character set that it is in; auto: as it says itself.
    const Record& Given() const { return *given_; }
    Charset GivenCharset() const { return options_.charset; }

    // Puts what changed into a record, in the character set of the one that was begun. The views
    // last until the next Begin.
    void Give(Record& record, Losses& losses);

private:
    struct Field {
        std::string_view tag;
        std::string_view given;    // in the record's character set; no data for a new field
        std::string_view decoded;  // `given` in UTF-8
        std::string_view content;  // in UTF-8, as it is now
        bool isRead = false;       // `decoded` and `content` are set
        bool isChanged = false;    // in its content
        bool isRenamed = false;
    };

    // Forgets the occurrences of fields from this one on, before one of them changes its tag or its
    // index.
    void ForgetOccurrences(std::size_t from);

    Charset CharsetInHand();
    TextConverter& Converter(Charset from, Charset to);
    std::string_view Hold(std::string text) { return texts_.emplace_back(std::move(text)); }
    std::string_view Decoded(std::string_view bytes, std::size_t indicators);
    std::string_view Encoded(const Field& field, Losses& losses);
    void AppendEncoded(std::string_view part, std::string& bytes, Losses& losses);
    void Note(const Place& place, std::optional<std::string> before,
              std::optional<std::string> after);
    void Note(std::vector<Change> changes);
    std::string TagsInOrder() const;

    Options options_;
    const Record* given_ = nullptr;
    Charset charset_ = kCharsetAuto;  // of the record in hand; auto if it was not looked at
    std::string_view operation_;
    std::string_view leader_;
    std::vector<Field> fields_;
    std::vector<std::uint32_t> occurrences_;  // of the first fields, as far as they are known
    std::map<std::string, std::uint32_t, std::less<>> tagCounts_;  // of these fields
    std::deque<std::string> texts_;
    std::vector<Change> changes_;
    Record view_;
    std::array<std::unique_ptr<TextConverter>, 4> decoders_;
    std::array<std::unique_ptr<TextConverter>, 4> encoders_;
};

}  // namespace quillory
