#include <quillory/edits/EditSession.h>
#include <quillory/edits/EditedRecord.h>
#include <quillory/edits/RecordEditor.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/Mrk.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kMostSteps = 1000;

using Field = EditSession::Field;
using State = EditSession::State;

// Copies what a record views into one text.
std::string BytesOf(const Record& record) {
    std::string bytes(record.leader);
    for (const auto& field : record.fields) bytes.append(field.tag).append(field.content);
    return bytes;
}

Record ViewOf(const Record& record, std::string_view bytes) {
    Record view;
    const auto take = [&bytes](std::size_t size) {
        const std::string_view part = bytes.substr(0, size);
        bytes.remove_prefix(size);
        return part;
    };
    view.leader = take(record.leader.size());
    for (const auto& field : record.fields) {
        const std::string_view tag = take(field.tag.size());
        view.fields.push_back({tag, take(field.content.size())});
    }
    return view;
}

// Fields that stand in both keep what they came from: the same text first, then the same tag.
void TakeOrigins(const std::vector<Field>& from, std::vector<Field>& fields) {
    std::vector<bool> taken(from.size());
    const auto match = [&](auto&& fits) {
        for (Field& field : fields) {
            for (std::size_t i = 0; field.given < 0 && i < from.size(); ++i) {
                if (taken[i] || from[i].given < 0 || !fits(field, from[i])) continue;
                taken[i] = true;
                field.given = from[i].given;
            }
        }
    };
    match([](const Field& a, const Field& b) { return a.tag == b.tag && a.content == b.content; });
    match([](const Field& a, const Field& b) { return a.tag == b.tag; });
}

constexpr std::string_view kLeaderLine = "=LDR  ";
constexpr const char* kSomeLeader = "00000nam\\a2200000\\a\\4500\n";

// Reads a text that is one record; blank lines in it say nothing. A fault of no code is one of the
// text as a whole.
std::optional<ItemFault> ReadLines(std::string_view text, State& state) {
    std::string lines;
    std::vector<std::uint64_t> numbers;  // of the lines that are not blank
    for (std::uint64_t number = 1; !text.empty(); ++number) {
        const std::string_view line = TakeLine(text);
        if (line.find_first_not_of(" \t") == line.npos) continue;
        lines.append(line) += '\n';
        numbers.push_back(number);
    }
    Input input(Input::kFromMemory, lines, {});
    MrkReader reader(input);
    Item item;
    if (!reader.Next(item)) return ItemFault{};
    state.leader = item.record.leader;
    for (const auto& field : item.record.fields) {
        state.fields.push_back({std::string(field.tag), std::string(field.content), -1});
    }
    std::optional<ItemFault> fault = item.fault;
    if (!fault && reader.Next(item)) fault = item.fault.value_or(ItemFault{});
    if (!fault || !fault->lineColumn) return fault;
    std::uint64_t& line = fault->lineColumn->line;
    // A field that no form can hold is named by its place alone, and stands in a line of its own.
    if (const auto field = FieldAt(state, fault->place); field && line == 1) line = *field + 2;
    if (line <= numbers.size()) line = numbers[line - 1];
    return fault;
}

}  // namespace

EditSession::EditSession(const Record& record, Charset charset)
    : bytes_(BytesOf(record)),
      given_(ViewOf(record, bytes_)),
      edited_(std::make_unique<EditedRecord>(EditedRecord::Options{charset, {}})) {
    edited_->Begin(given_);
    State state{std::string(given_.leader), {}};
    for (std::size_t i = 0; i < edited_->Size(); ++i) {
        state.fields.push_back({std::string(edited_->TagOf(i)), std::string(edited_->ContentOf(i)),
                                static_cast<std::int32_t>(i)});
    }
    saved_ = std::make_shared<const State>(std::move(state));
    history_.push_back(saved_);
}

EditSession::~EditSession() = default;

void EditSession::Become(State state, std::string_view burst) {
    if (state == Now() || !MayBecome(state)) return;
    history_.resize(at_ + 1);
    const bool goesOn = !burst.empty() && burst == burst_ && history_[at_] != saved_ && at_ > 0;
    burst_ = burst;
    if (goesOn) history_.pop_back();
    history_.push_back(std::make_shared<const State>(std::move(state)));
    if (history_.size() > kMostSteps) history_.erase(history_.begin());
    at_ = history_.size() - 1;
}

void EditSession::SetLeader(std::string leader) {
    State state = Now();
    state.leader = std::move(leader);
    Become(std::move(state));
}

void EditSession::SetTag(std::size_t field, std::string tag) {
    State state = Now();
    state.fields[field].tag = std::move(tag);
    Become(std::move(state));
}

void EditSession::SetContent(std::size_t field, std::string content, std::string_view burst) {
    State state = Now();
    state.fields[field].content = std::move(content);
    Become(std::move(state), burst);
}

void EditSession::Insert(std::size_t before, std::string tag, std::string content) {
    State state = Now();
    state.fields.insert(state.fields.begin() + static_cast<std::ptrdiff_t>(before),
                        {std::move(tag), std::move(content), -1});
    Become(std::move(state));
}

void EditSession::Remove(std::size_t field) {
    State state = Now();
    state.fields.erase(state.fields.begin() + static_cast<std::ptrdiff_t>(field));
    Become(std::move(state));
}

void EditSession::Move(std::size_t field, std::size_t to) {
    State state = Now();
    Field moved = std::move(state.fields[field]);
    state.fields.erase(state.fields.begin() + static_cast<std::ptrdiff_t>(field));
    state.fields.insert(state.fields.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    Become(std::move(state));
}

Record EditSession::InUtf8() const {
    return RecordOf(Now());
}

std::string EditSession::Lines() const {
    std::string lines = LinesOf(Now());
    while (lines.ends_with("\n\n")) lines.pop_back();
    return lines;
}

// The text is UTF-8, whatever the leader says of the record, and is read as such.
std::optional<ItemFault> EditSession::SetLines(std::string_view lines) {
    std::string text(lines);
    char label = '\0';
    const std::size_t at = kLeaderLine.size() + zorby::kLeaderCharacterCode;
    if (text.starts_with(kLeaderLine) && text.size() > at && text[at] != '\n') {
        label = std::exchange(text[at], 'a');
        if (label == '\\') label = ' ';
    }
    State state;
    if (auto fault = ReadLines(text, state)) return fault;
    if (label != '\0') state.leader[zorby::kLeaderCharacterCode] = label;
    TakeOrigins(Now().fields, state.fields);
    Become(std::move(state));
    return std::nullopt;
}

void EditSession::TakeUp(State state) {
    TakeOrigins(Now().fields, state.fields);
    Become(std::move(state));
}

State EditSession::Try(const std::function<void()>& work) {
    const auto history = history_;
    const std::size_t at = at_;
    const std::string burst = burst_;
    const Gate gate = std::exchange(gate_, nullptr);
    work();
    State state = Now();
    history_ = history;
    at_ = at;
    burst_ = burst;
    gate_ = gate;
    return state;
}

std::optional<ItemFault> ReadFieldLines(std::string_view lines, std::vector<Field>& fields) {
    const bool hasLeader = lines.starts_with(kLeaderLine);
    const std::string leader = hasLeader ? "" : std::string(kLeaderLine) + kSomeLeader;
    State state;
    auto fault = ReadLines(leader + std::string(lines), state);
    if (fault && fault->lineColumn && !hasLeader) --fault->lineColumn->line;
    if (!fault) fields = std::move(state.fields);
    return fault;
}

void EditSession::Undo() {
    burst_.clear();
    if (CanUndo() && MayBecome(*history_[at_ - 1])) --at_;
}

void EditSession::Redo() {
    burst_.clear();
    if (CanRedo() && MayBecome(*history_[at_ + 1])) ++at_;
}

// Leads the record as it came to what it is now.
void EditSession::Give(Record& record, Losses& losses) {
    const State& now = Now();
    edited_->Begin(given_);
    edited_->SetLeader(now.leader);
    std::vector<bool> stays(given_.fields.size());
    for (const Field& field : now.fields) {
        if (field.given >= 0) stays[static_cast<std::size_t>(field.given)] = true;
    }
    std::vector<std::size_t> places(stays.size());  // of the fields that stay, by where they were
    for (std::size_t i = 0, place = 0; i < stays.size(); ++i) places[i] = stays[i] ? place++ : 0;
    for (std::size_t i = stays.size(); i-- > 0;) {
        if (!stays[i]) edited_->Remove(i);
    }
    std::vector<std::size_t> order;
    for (const Field& field : now.fields) {
        if (field.given < 0) {
            order.push_back(edited_->Size());
            edited_->Insert(edited_->Size(), field.tag, field.content);
        } else {
            order.push_back(places[static_cast<std::size_t>(field.given)]);
        }
    }
    edited_->Reorder(order);
    for (std::size_t i = 0; i < now.fields.size(); ++i) {
        edited_->SetTag(i, now.fields[i].tag);
        edited_->SetContent(i, now.fields[i].content);
    }
    edited_->Give(record, losses);
}

std::optional<Fault> EditSession::WhatIsWrong(bool isIso2709) {
    Record record;
    Losses unused;
    Give(record, unused);
    return FaultOfEdit(*edited_, record, isIso2709);
}

Record RecordOf(const RecordState& state) {
    Record record;
    record.leader = state.leader;
    record.fields.reserve(state.fields.size());
    for (const Field& field : state.fields) record.fields.push_back({field.tag, field.content});
    return record;
}

std::string LinesOf(const RecordState& state) {
    std::string lines;
    AppendMrk(RecordOf(state), lines);
    return lines;
}

Place PlaceOf(const RecordState& state, std::size_t field) {
    const std::string& tag = state.fields[field].tag;
    const auto end = state.fields.begin() + static_cast<std::ptrdiff_t>(field) + 1;
    const auto count = std::count_if(state.fields.begin(), end,
                                     [&](const auto& other) { return other.tag == tag; });
    return Place::OfField(tag, static_cast<std::uint32_t>(count));
}

std::optional<std::size_t> FieldAt(const RecordState& state, const Place& place) {
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < state.fields.size(); ++i) {
        if (state.fields[i].tag != place.Tag()) continue;
        if (++count == std::max(place.occurrence, 1U)) return i;
    }
    return std::nullopt;
}

}  // namespace quillory
