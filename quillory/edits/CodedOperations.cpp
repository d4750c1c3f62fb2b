#include <quillory/cataloging/CodedCheck.h>
#include <quillory/edits/CodedChange.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>
#include <quillory/queries/Values.h>

#include <algorithm>

namespace quillory {
namespace {

// Blanks may be written as signs.
std::string WithBlanks(std::string text, std::string_view signs) {
    std::ranges::replace_if(
        text, [signs](char c) { return signs.find(c) != signs.npos; }, ' ');
    return text;
}

class WriteIndicators : public Operation {
public:
    WriteIndicators(PlaceSet places, std::string values)
        : places_(std::move(places)), values_(std::move(values)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            for (const std::size_t index : FieldsOf(record, pattern, isMeant)) {
                Set(record, index, pattern.place.indicator);
            }
        }
    }

private:
    void Set(EditedRecord& record, std::size_t index, unsigned indicator) const {
        std::string content(record.ContentOf(index));
        const bool hasIndicators = PartsOf(content).head.size() == kIndicators;
        if (!hasIndicators || record.IsControl(index)) return;
        const std::size_t at = indicator == 0 ? 0 : indicator - 1;
        values_.copy(content.data() + at, values_.size());
        record.SetContent(index, std::move(content));
    }

    PlaceSet places_;
    std::string values_;
};

class WritePositions : public Operation {
public:
    WritePositions(PlacePattern pattern, std::string value, const CodeLists& lists)
        : pattern_(std::move(pattern)), value_(std::move(value)), lists_(lists) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        if (pattern_.place.IsLeader()) {
            SetLeader(record);
            return;
        }
        for (const std::size_t index : FieldsOf(record, pattern_, isMeant)) {
            const std::string before(record.ContentOf(index));
            const std::string after = WithValue(before, record.PlaceOf(index));
            if (after == before) continue;
            record.SetContent(index, after);
            Check(record, record.PlaceOf(index));
        }
    }

private:
    void SetLeader(EditedRecord& record) const {
        const std::string after = WithValue(record.Leader(), Place::OfLeader());
        if (after == record.Leader()) return;
        record.SetLeader(after);
        Check(record, Place::OfLeader());
    }

    std::string WithValue(std::string_view field, const Place& place) const {
        const auto first = static_cast<std::size_t>(pattern_.place.first);
        if (field.size() < first + value_.size()) {
            throw EditRefused({FaultCode::kFieldEndsBefore,
                               place.Positions(pattern_.place.first, pattern_.place.last)});
        }
        std::string after(field);
        return after.replace(first, value_.size(), value_);
    }

    void Check(EditedRecord& record, const Place& place) const {
        Entry entry;
        entry.kind = EntryKind::Positions;
        entry.place = place.Positions(pattern_.place.first, pattern_.place.last);
        entry.text = value_;
        try {
            CheckCodedEntries(record.InUtf8(), {&entry, 1}, lists_);
        } catch (const EntryError& error) {
            throw EditRefused(error.What());
        }
    }

    PlacePattern pattern_;
    std::string value_;
    const CodeLists& lists_;
};

}  // namespace

MadeOperation MakeIndicators(const Parameters& parameters, const EditTools&) {
    PlaceSet places = PlacesOfKind(parameters, "place", {PlaceKind::Field, PlaceKind::Indicator},
                                   "indicators such as 245/2, or fields such as 650");
    std::string values = WithBlanks(parameters.FieldText("value"), "_#\\");
    const bool isAscii = std::ranges::all_of(values, [](char c) { return c >= 0; });
    for (const PlacePattern& pattern : places.patterns) {
        const std::size_t wanted = pattern.place.indicator == 0 ? kIndicators : 1;
        if (isAscii && values.size() == wanted) continue;
        throw ParameterError("value", {FaultCode::kNoIndicatorValue, {}, parameters.Text("value")});
    }
    return std::make_unique<WriteIndicators>(std::move(places), std::move(values));
}

MadeOperation MakeSet(const Parameters& parameters, const EditTools& tools) {
    const PlaceSet places =
        PlacesOfKind(parameters, "place", {PlaceKind::Positions},
                     "positions of a control field, such as 008/35-37 or leader/17");
    const PlacePattern& pattern = places.patterns.front();
    if (places.patterns.size() > 1 || BelongsToTheFile(pattern.place)) {
        const auto code =
            places.patterns.size() > 1 ? FaultCode::kOnePlaceOnly : FaultCode::kPositionsOfTheFile;
        throw ParameterError("place", {code, {}, parameters.Text("place")});
    }
    std::string value = WithBlanks(parameters.FieldText("value"), "#");
    const auto width = static_cast<std::size_t>(pattern.place.last - pattern.place.first) + 1;
    if (value.size() != width) {
        throw ParameterError(
            "value", {FaultCode::kValueWidth, {}, parameters.Text("value"), std::to_string(width)});
    }
    return std::make_unique<WritePositions>(pattern, std::move(value), tools.codeLists());
}

}  // namespace quillory
