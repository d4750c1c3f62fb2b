#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/text/Charset.h>
#include <quillory/text/Losses.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

class EditedRecord;

// A record that a person edits, with all that can be undone. Texts are UTF-8, with indicators and
// delimiters as in ISO 2709, whatever the record is in; what was not touched keeps its bytes.
class EditSession {
public:
    struct Field {
        std::string tag;
        std::string content;
        std::int32_t given = -1;  // its index in the record as it came; -1 if it is new

        friend bool operator==(const Field&, const Field&) = default;
    };
    struct State {
        std::string leader;
        std::vector<Field> fields;

        friend bool operator==(const State&, const State&) = default;
    };

    // Keeps a copy. `charset` is what the record is in; auto: as it says itself.
    explicit EditSession(const Record& record, Charset charset = kCharsetAuto);
    ~EditSession();
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    const State& Now() const { return *history_[at_]; }
    // The same, which stays as it is after later steps.
    std::shared_ptr<const State> Shared() const { return history_[at_]; }

    // One step each. `burst`, if it is not empty, names what goes on with the step before it of the
    // same name, as with letter after letter of a word, and both are undone as one.
    void Become(State state, std::string_view burst = {});
    void SetLeader(std::string leader);
    void SetTag(std::size_t field, std::string tag);
    void SetContent(std::size_t field, std::string content, std::string_view burst = {});
    void Insert(std::size_t before, std::string tag, std::string content);
    void Remove(std::size_t field);
    void Move(std::size_t field, std::size_t to);

    // The leader and the fields as lines of the line form, in UTF-8.
    std::string Lines() const;
    // The reverse. What can't be read is a fault with its line, and nothing changes.
    std::optional<ItemFault> SetLines(std::string_view lines);

    // The reverse of what a journal keeps: a state whose fields don't say what they came from.
    void TakeUp(State state);

    // Asked before each step, with what the record would be then: a step that it refuses is not
    // made.
    using Gate = std::function<bool(const State& wanted)>;
    void SetGate(Gate gate) { gate_ = std::move(gate); }
    // What the record would be after some work, of which nothing stays. No gate is asked.
    State Try(const std::function<void()>& work);

    bool CanUndo() const { return at_ > 0; }
    bool CanRedo() const { return at_ + 1 < history_.size(); }
    void Undo();
    void Redo();

    // Whether the record is another than it was when it was saved.
    bool IsChanged() const { return history_[at_] != saved_ && *history_[at_] != *saved_; }
    void MarkSaved() { saved_ = history_[at_]; }

    // The record as it is now, in the character set that it came in. What that lacks of new text is
    // counted. Views last until the next call.
    void Give(Record& record, Losses& losses);
    // Why the record as it is now could not be read again from a file of ISO 2709 or, if that is
    // not asked for, of any form.
    std::optional<Fault> WhatIsWrong(bool isIso2709);
    // In UTF-8 but for what its leader says. Views last until the next step.
    Record InUtf8() const;

private:
    bool MayBecome(const State& wanted) const { return gate_ == nullptr || gate_(wanted); }

    std::string bytes_;  // what the given record views
    Record given_;
    std::unique_ptr<EditedRecord> edited_;
    std::vector<std::shared_ptr<const State>> history_;
    std::size_t at_ = 0;
    std::shared_ptr<const State> saved_;
    std::string burst_;
    Gate gate_;
};

// The fields that are written in the line form, as new ones; of a whole record without its leader.
// What can't be read is a fault with its line, and there are no fields then.
std::optional<ItemFault> ReadFieldLines(std::string_view lines,
                                        std::vector<EditSession::Field>& fields);

using RecordState = EditSession::State;

// In UTF-8 but for what its leader says. Views last as long as the state.
Record RecordOf(const RecordState& state);
// The leader and the fields as lines of the line form, with an empty one after them.
std::string LinesOf(const RecordState& state);
Place PlaceOf(const RecordState& state, std::size_t field);
// The index of the field that a place is in; nothing for the leader or a field that is not there.
std::optional<std::size_t> FieldAt(const RecordState& state, const Place& place);

}  // namespace quillory
