#include <quillory/exchange/Subfields.h>
#include <quillory/queries/Values.h>
#include <quillory/sets/RecordDifference.h>
#include <quillory/text/CommonSequence.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <span>

namespace quillory {
namespace {

using Field = ComparableRecord::Field;
using ComparableFields = std::span<const Field>;

constexpr std::string_view kLeaderTag = "LDR";

// First and last positions of the leader that belong to the file.
constexpr std::array<std::array<std::size_t, 2>, 3> kOfTheFile{{{0, 4}, {9, 9}, {12, 16}}};

std::string LeaderText(std::string_view leader) {
    std::string text(leader);
    for (const auto& [first, last] : kOfTheFile) {
        for (std::size_t i = first; i <= last && i < text.size(); ++i) text[i] = ' ';
    }
    return text;
}

void Blank(std::string& content, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i <= last && i < content.size(); ++i) content[i] = ' ';
}

void RemoveSubfields(const PlacePattern& pattern, std::string& content) {
    std::string kept;
    ForEachPart(content, [&](std::string_view part) {
        const bool isSubfield = part.size() > 1 && part.front() == zorby::kDelimiter;
        if (!isSubfield || !pattern.HasCode(part[1])) kept += part;
    });
    content = std::move(kept);
}

// False if nothing is left of the field.
bool LeaveOut(const PlacePattern& pattern, std::string& content) {
    const Place& place = pattern.place;
    if (pattern.HasCodes()) {
        RemoveSubfields(pattern, content);
    } else if (place.HasPositions()) {
        Blank(content, static_cast<std::size_t>(place.first), static_cast<std::size_t>(place.last));
    } else if (place.indicator != 0) {
        Blank(content, place.indicator - 1U, place.indicator - 1U);
    } else {
        return false;
    }
    return true;
}

// Fields between those that stand in both: each against the next one of its tag.
void AddChanges(ComparableFields before, ComparableFields after,
                std::vector<FieldChange>& changes) {
    std::map<std::string_view, std::deque<std::size_t>> waiting;  // of the second, by tag
    for (std::size_t k = 0; k < after.size(); ++k) waiting[after[k].tag].push_back(k);
    for (const Field& field : before) {
        FieldChange& change =
            changes.emplace_back(FieldChange{field.tag, field.content, {}, true, false});
        std::deque<std::size_t>& others = waiting[field.tag];
        if (others.empty()) continue;
        change.after = after[others.front()].content;
        change.isAfter = true;
        others.pop_front();
    }
    for (std::size_t k = 0; k < after.size(); ++k) {
        const std::deque<std::size_t>& left = waiting[after[k].tag];
        if (left.empty() || k < left.front()) continue;
        changes.push_back({after[k].tag, {}, after[k].content, false, true});
    }
}

}  // namespace

ComparableRecord::ComparableRecord(Charset from, PlaceSet ignored)
    : recoder_({from, kCharsetUtf8, kNormalFormC}), ignored_(std::move(ignored)) {}

void ComparableRecord::Add(std::string_view tag, std::string content, std::uint32_t occurrence) {
    for (const PlacePattern& pattern : ignored_.patterns) {
        const std::uint32_t wanted = pattern.place.occurrence;
        const bool isMeant = pattern.Covers(tag) && (wanted == 0 || wanted == occurrence);
        if (isMeant && !LeaveOut(pattern, content)) return;
    }
    fields_.push_back({std::string(tag), std::move(content)});
}

void ComparableRecord::Set(const Record& record) {
    record_ = record;
    recoder_.Recode(record_, unused_);
    unused_.Clear();
    fields_.clear();
    Add(kLeaderTag, LeaderText(record_.leader), 1);
    TagOccurrences occurrences;
    for (const zorby::CommFormatField& field : record_.fields) {
        Add(field.tag, std::string(field.content), occurrences.Next(field.tag));
    }
}

std::vector<FieldChange> Differences(const ComparableRecord& before,
                                     const ComparableRecord& after) {
    const ComparableFields one = before.Fields();
    const ComparableFields other = after.Fields();
    std::vector<FieldChange> changes;
    std::size_t i = 0;
    std::size_t k = 0;
    ForEachCommon<Field>(one, other, [&](std::size_t sameI, std::size_t sameK) {
        if (i < sameI || k < sameK) {
            AddChanges(one.subspan(i, sameI - i), other.subspan(k, sameK - k), changes);
        }
        i = sameI + 1;
        k = sameK + 1;
    });
    AddChanges(one.subspan(i), other.subspan(k), changes);
    return changes;
}

}  // namespace quillory
