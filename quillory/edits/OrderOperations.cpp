#include <quillory/edits/FieldParts.h>
#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>

namespace quillory {
namespace {

// All fields, where none are named.
PlaceSet PlacesOrAll(const Parameters& parameters, std::initializer_list<PlaceKind> kinds,
                     std::string_view allowed) {
    Parameters all = parameters;
    if (!all.Has("places")) all.Set("places", "XXX");
    return PlacesOfKind(all, "places", kinds, allowed);
}

// The fields that any of the patterns covers, each once, from the first to the last.
std::vector<std::size_t> FieldsOf(EditedRecord& record, const PlaceSet& places,
                                  const FieldFilter& isMeant) {
    std::vector<std::size_t> all;
    for (const PlacePattern& pattern : places.patterns) {
        const auto fields = quillory::FieldsOf(record, pattern, isMeant);
        all.insert(all.end(), fields.begin(), fields.end());
    }
    std::ranges::sort(all);
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

class SortFields : public Operation {
public:
    explicit SortFields(PlaceSet places) : places_(std::move(places)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        const std::vector<std::size_t> slots = FieldsOf(record, places_, isMeant);
        std::vector<std::size_t> sorted = slots;
        std::ranges::stable_sort(sorted, {}, [&record](std::size_t i) { return record.TagOf(i); });
        std::vector<std::size_t> order(record.Size());
        std::iota(order.begin(), order.end(), 0);
        for (std::size_t i = 0; i < slots.size(); ++i) order[slots[i]] = sorted[i];
        record.Reorder(order);
    }

private:
    PlaceSet places_;
};

class OrderSubfields : public Operation {
public:
    OrderSubfields(PlaceSet places, std::string codes)
        : places_(std::move(places)), codes_(std::move(codes)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const std::size_t index : FieldsOf(record, places_, isMeant)) {
            if (record.IsControl(index)) continue;
            FieldParts field = PartsOf(record.ContentOf(index));
            std::ranges::stable_sort(field.parts, {}, [this](std::string_view part) {
                return codes_.find(CodeOf(part));
            });
            record.SetContent(index, Joined(field));
        }
    }

private:
    PlaceSet places_;
    std::string codes_;
};

class RemoveEmpty : public Operation {
public:
    explicit RemoveEmpty(PlaceSet places) : places_(std::move(places)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            std::vector<std::size_t> emptied;
            for (const std::size_t index : quillory::FieldsOf(record, pattern, isMeant)) {
                const auto left = Left(record, index, pattern);
                if (left) {
                    record.SetContent(index, *left);
                } else {
                    emptied.push_back(index);
                }
            }
            RemoveFields(record, emptied);
        }
    }

private:
    // Nothing if the field is empty.
    static std::optional<std::string> Left(EditedRecord& record, std::size_t index,
                                           const PlacePattern& pattern) {
        FieldParts field = PartsOf(record.ContentOf(index));
        if (field.parts.empty()) {
            const std::size_t indicators = record.IsControl(index) ? 0 : 2;
            const bool isEmpty =
                IsBlank(field.head.substr(std::min(indicators, field.head.size())));
            if (!pattern.HasCodes() && isEmpty) return std::nullopt;
            return std::string(field.head);
        }
        std::erase_if(field.parts, [&pattern](std::string_view part) {
            const bool isMeant = !pattern.HasCodes() || pattern.HasCode(CodeOf(part));
            return isMeant && IsBlank(TextOf(part));
        });
        if (field.parts.empty()) return std::nullopt;
        return Joined(field);
    }

    PlaceSet places_;
};

class RemoveDouble : public Operation {
public:
    explicit RemoveDouble(PlaceSet places) : places_(std::move(places)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const PlacePattern& pattern : places_.patterns) {
            const auto fields = quillory::FieldsOf(record, pattern, isMeant);
            if (pattern.HasCodes()) {
                for (const std::size_t index : fields) RemoveSubfields(record, index, pattern);
            } else {
                RemoveDoubleFields(record, fields);
            }
        }
    }

private:
    static void RemoveDoubleFields(EditedRecord& record, const std::vector<std::size_t>& fields) {
        std::set<std::pair<std::string_view, std::string_view>> known;
        std::vector<std::size_t> doubles;
        for (const std::size_t index : fields) {
            const bool isNew = known.emplace(record.TagOf(index), record.ContentOf(index)).second;
            if (!isNew) doubles.push_back(index);
        }
        RemoveFields(record, doubles);
    }

    static void RemoveSubfields(EditedRecord& record, std::size_t index,
                                const PlacePattern& pattern) {
        FieldParts field = PartsOf(record.ContentOf(index));
        std::set<std::string_view> known;
        std::erase_if(field.parts, [&](std::string_view part) {
            return pattern.HasCode(CodeOf(part)) && !known.insert(part).second;
        });
        record.SetContent(index, Joined(field));
    }

    PlaceSet places_;
};

}  // namespace

MadeOperation MakeSortFields(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    return std::make_unique<SortFields>(
        PlacesOrAll(parameters, {Field, ControlField}, "fields such as 5XX"));
}

MadeOperation MakeOrderSubfields(const Parameters& parameters, const EditTools&) {
    const std::string codes = parameters.FieldText("codes");
    return std::make_unique<OrderSubfields>(
        PlacesOfKind(parameters, "place", {PlaceKind::Field}, "fields such as 650 or 6XX"),
        codes.empty() ? "abcdefghijklmnopqrstuvwxyz0123456789" : codes);
}

MadeOperation MakeRemoveEmpty(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    return std::make_unique<RemoveEmpty>(
        PlacesOrAll(parameters, {Field, ControlField, Subfield}, "fields or subfields"));
}

MadeOperation MakeRemoveDouble(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    return std::make_unique<RemoveDouble>(
        PlacesOrAll(parameters, {Field, ControlField, Subfield}, "fields or subfields"));
}

}  // namespace quillory
