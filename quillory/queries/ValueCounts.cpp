#include <quillory/coded/Material.h>
#include <quillory/coded/Places.h>
#include <quillory/queries/ValueCounts.h>

#include <algorithm>
#include <tuple>

namespace quillory {
namespace {

using namespace zorby;

// The form by which positions of a field are read.
CFType FormOf(const ValueSlice& slice, std::string_view leader) {
    if (slice.place.IsLeader()) return CFLdr;
    switch (slice.place.Number()) {
        case 6:
            return MaterialOf006(slice.field);
        case 7:
            return CategoryOf007(slice.field);
        default: {
            const bool isOfMaterial =
                kFirstMaterial008 <= slice.place.first && slice.place.first <= kLastMaterial008;
            return isOfMaterial ? MaterialOfLeader(leader) : CF008Standard;
        }
    }
}

}  // namespace

ValueCounts::ValueCounts(PlaceSet places, Charset charset, const CodeLists* lists)
    : places_(std::move(places)), reader_(charset), lists_(lists) {
    if (lists != nullptr) FindElements();
}

void ValueCounts::FindElements() {
    for (const PlacePattern& pattern : places_.patterns) {
        if (!pattern.place.HasPositions()) continue;
        const Place place = pattern.place.Field();
        Place asked = Place::OfField(place.Tag());
        asked.first = pattern.place.first;
        asked.last = pattern.place.last;
        for (const NamedElement& named : FindPlace(PlaceText(asked)).elements) {
            const Place at = PlaceOf(*named.element, named.in008);
            if (at.first == asked.first && at.last == asked.last) {
                elements_.push_back({asked, named.element});
            }
        }
    }
}

const Element* ValueCounts::ElementOf(const ValueSlice& slice, std::string_view leader) const {
    const bool mayBeOne = !elements_.empty() && slice.place.HasPositions();
    if (!mayBeOne || !IsBibliographic(leader)) return nullptr;
    const CFType form = FormOf(slice, leader);
    const auto found = std::ranges::find_if(elements_, [&](const ElementAt& at) {
        return at.element->form == form && at.place.tag == slice.place.tag &&
               at.place.first == slice.place.first && at.place.last == slice.place.last;
    });
    return found == elements_.end() ? nullptr : found->element;
}

void ValueCounts::AddValue(const Element* element, std::string_view value) {
    Tallies& tallies = tallies_[element];
    auto known = tallies.find(value);
    if (known == tallies.end()) known = tallies.emplace(value, Tally()).first;
    known->second.Add(records_);
}

void ValueCounts::Add(const Record& record) {
    ++records_;
    bool any = false;
    reader_.Begin();
    ForEachSlice(record, places_, [&](const ValueSlice& slice) {
        any = true;
        const std::string_view value = reader_.TextOf(record, slice);
        const Element* element = ElementOf(slice, record.leader);
        if (element == nullptr) {
            AddValue(nullptr, value);
        } else {
            for (const std::string_view code : lists_->SplitCodes(*element, value)) {
                AddValue(element, code);
            }
        }
    });
    if (any) ++recordsWith_;
}

void ValueCounts::Add(const ValueCounts& others) {
    records_ += others.records_;
    recordsWith_ += others.recordsWith_;
    for (const auto& [element, tallies] : others.tallies_) {
        for (const auto& [value, tally] : tallies) tallies_[element][value].Add(tally);
    }
}

std::vector<ValueCounts::Row> ValueCounts::Rows() const {
    std::vector<Row> rows;
    for (const auto& [element, tallies] : tallies_) {
        for (const auto& [value, tally] : tallies) {
            rows.push_back(
                {value, element == nullptr ? "" : lists_->Find(*element, value).text, tally});
        }
    }
    std::ranges::sort(rows, [](const Row& a, const Row& b) {
        return std::tie(b.tally.count, a.value, a.name) < std::tie(a.tally.count, b.value, b.name);
    });
    return rows;
}

}  // namespace quillory
