#include <quillory/edits/FieldParts.h>
#include <quillory/edits/NewField.h>
#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/queries/Values.h>

#include <algorithm>
#include <optional>

namespace quillory {
namespace {

// The content without subfields that a pattern names; nothing if no subfield is left.
std::optional<std::string> Without(std::string_view content, const PlacePattern& pattern) {
    FieldParts field = PartsOf(content);
    std::erase_if(field.parts,
                  [&pattern](std::string_view part) { return pattern.HasCode(CodeOf(part)); });
    if (field.parts.empty()) return std::nullopt;
    return Joined(field);
}

void RemoveSubfields(EditedRecord& record, const PlacePattern& pattern,
                     const std::vector<std::size_t>& fields) {
    std::vector<std::size_t> emptied;
    for (const std::size_t index : fields) {
        const std::string_view content = record.ContentOf(index);
        const bool hasSubfields = content.find(zorby::kDelimiter) != content.npos;
        if (!hasSubfields) continue;
        if (auto left = Without(content, pattern)) {
            record.SetContent(index, std::move(*left));
        } else {
            emptied.push_back(index);
        }
    }
    RemoveFields(record, emptied);
}

void RemovePlaces(EditedRecord& record, const PlacePattern& pattern,
                  const std::vector<std::size_t>& fields) {
    if (pattern.HasCodes()) {
        RemoveSubfields(record, pattern, fields);
    } else {
        RemoveFields(record, fields);
    }
}

class Delete : public Operation {
public:
    explicit Delete(PlaceSet places) : places_(std::move(places)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            RemovePlaces(record, pattern, FieldsOf(record, pattern, isMeant));
        }
    }

private:
    PlaceSet places_;
};

class RenameFields : public Operation {
public:
    RenameFields(PlaceSet places, std::string tag)
        : places_(std::move(places)), tag_(std::move(tag)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            for (const std::size_t index : FieldsOf(record, pattern, isMeant)) {
                record.SetTag(index, tag_);
            }
        }
    }

private:
    PlaceSet places_;
    std::string tag_;
};

class RenameSubfields : public Operation {
public:
    RenameSubfields(PlaceSet places, char code) : places_(std::move(places)), code_(code) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            for (const std::size_t index : FieldsOf(record, pattern, isMeant)) {
                record.SetContent(index, Renamed(record.ContentOf(index), pattern));
            }
        }
    }

private:
    std::string Renamed(std::string_view content, const PlacePattern& pattern) const {
        const FieldParts field = PartsOf(content);
        std::string renamed(field.head);
        for (const std::string_view part : field.parts) {
            const bool isMeant = part.size() > 1 && pattern.HasCode(CodeOf(part));
            renamed += isMeant ? Part(code_, TextOf(part)) : std::string(part);
        }
        return renamed;
    }

    PlaceSet places_;
    char code_;
};

// Copies whole fields to another tag, or moves them there.
class CarryFields : public Operation {
public:
    CarryFields(PlaceSet places, std::string tag, bool isMove)
        : places_(std::move(places)), tag_(std::move(tag)), isMove_(isMove) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            const auto fields = FieldsOf(record, pattern, isMeant);
            std::vector<std::string> contents;
            contents.reserve(fields.size());
            for (const std::size_t index : fields) contents.emplace_back(record.ContentOf(index));
            if (isMove_) RemoveFields(record, fields);
            for (std::string& content : contents) {
                if (!HasField(record, tag_, content)) {
                    InsertField(record, tag_, std::move(content));
                }
            }
        }
    }

private:
    PlaceSet places_;
    std::string tag_;
    bool isMove_;
};

// Copies values into subfields, or moves them there: into the field that they are in, or into a
// new field for each.
class CarryValues : public Operation {
public:
    CarryValues(const PlacePattern& from, const Place& to, bool isMove)
        : from_(from), to_(to), isMove_(isMove) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        const auto fields = FieldsOf(record, from_, isMeant);
        std::vector<std::string> values;
        for (const std::size_t index : fields) {
            const auto ofField = ValuesOf(record, index);
            if (IsInField()) {
                CarryWithin(record, index, ofField);
            } else {
                values.insert(values.end(), ofField.begin(), ofField.end());
            }
        }
        if (IsInField()) return;
        if (isMove_) RemovePlaces(record, from_, fields);
        for (const std::string& value : values) AddField(record, value);
    }

private:
    bool IsInField() const { return from_.HasCodes() && from_.place.Tag() == to_.Tag(); }

    std::vector<std::string> ValuesOf(EditedRecord& record, std::size_t index) const {
        std::vector<std::string> values;
        PlacePattern any = from_;
        any.place.occurrence = 0;
        any.place.material = '\0';
        ForEachValue(record.InUtf8(index), PlaceSet{{any}},
                     [&values](const Place&, std::string_view value) {
                         if (!value.empty()) values.emplace_back(value);
                     });
        return values;
    }

    void CarryWithin(EditedRecord& record, std::size_t index,
                     const std::vector<std::string>& values) const {
        if (values.empty()) return;
        std::string content(record.ContentOf(index));
        if (isMove_) content = Without(content, from_).value_or(std::string(PartsOf(content).head));
        for (const std::string& value : values) {
            if (!HasSubfield(content, to_.code, value)) content += Part(to_.code, value);
        }
        record.SetContent(index, std::move(content));
    }

    void AddField(EditedRecord& record, const std::string& value) const {
        std::string content = std::string(kBlankIndicators) + Part(to_.code, value);
        if (!HasField(record, to_.Tag(), content)) {
            InsertField(record, to_.Tag(), std::move(content));
        }
    }

    PlacePattern from_;
    Place to_;
    bool isMove_;
};

constexpr std::string_view kFieldsOrValues =
    "fields such as 9XX, subfields such as 020a, or a control field";

MadeOperation MakeCarry(const Parameters& parameters, bool isMove) {
    using enum PlaceKind;
    const PlaceSet from =
        isMove ? PlacesOfKind(parameters, "place", {Field, ControlField, Subfield}, kFieldsOrValues)
               : PlacesOfKind(parameters, "place", {Field, ControlField, Subfield, Positions},
                              "fields, subfields, or positions of a control field");
    const PlacePattern& first = from.patterns.front();
    const Place to = parameters.OnePlace("into");
    const bool isWhole = KindOf(first) == KindOf(to) && KindOf(to) != Subfield;
    const bool isAlike = std::ranges::all_of(
        from.patterns, [&first](const auto& pattern) { return KindOf(pattern) == KindOf(first); });
    if (isAlike && isWhole && (KindOf(to) == Field || KindOf(to) == ControlField)) {
        return std::make_unique<CarryFields>(from, std::string(to.Tag()), isMove);
    }
    const bool isOne = from.patterns.size() == 1;
    if (!isOne || KindOf(to) != Subfield || KindOf(first) == Field) {
        throw ParameterError(
            "into", {FaultCode::kNoPlaceForOperation,
                     {},
                     parameters.Text("into"),
                     "a tag for fields, and a subfield such as 035a for values of one place"});
    }
    return std::make_unique<CarryValues>(first, to, isMove);
}

// Tag or code alone, or a place that has it.
Place NewName(const Parameters& parameters, const PlacePattern& of) {
    const std::string to = parameters.Text("as");
    const bool isCode = of.HasCodes() && to.size() == 1;
    const std::string text = isCode ? "999" + to : to;
    const auto place = ParsePlace(text);
    const bool fits = place && place->occurrence == 0 && KindOf(*place) == KindOf(of) &&
                      (isCode || !of.HasCodes() || of.Covers(place->Tag()));
    if (fits && !place->IsLeader()) return *place;
    throw ParameterError("as", {FaultCode::kNoPlaceForOperation,
                                {},
                                to,
                                "a tag of the same kind for fields, and a code for subfields"});
}

}  // namespace

MadeOperation MakeDelete(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    return std::make_unique<Delete>(
        PlacesOfKind(parameters, "place", {Field, ControlField, Subfield}, kFieldsOrValues));
}

MadeOperation MakeRename(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    PlaceSet places =
        PlacesOfKind(parameters, "place", {Field, ControlField, Subfield}, kFieldsOrValues);
    const Place name = NewName(parameters, places.patterns.front());
    for (const PlacePattern& pattern : places.patterns) NewName(parameters, pattern);
    if (name.code != '\0') return std::make_unique<RenameSubfields>(std::move(places), name.code);
    return std::make_unique<RenameFields>(std::move(places), std::string(name.Tag()));
}

MadeOperation MakeCopy(const Parameters& parameters, const EditTools&) {
    return MakeCarry(parameters, false);
}

MadeOperation MakeMove(const Parameters& parameters, const EditTools&) {
    return MakeCarry(parameters, true);
}

}  // namespace quillory
