#include <quillory/exchange/Subfields.h>
#include <quillory/queries/FieldCounts.h>

#include <cstddef>

namespace quillory {
namespace {

template <class Tallies>
void AddEach(const Tallies& others, Tallies& tallies) {
    for (std::size_t i = 0; i < tallies.size(); ++i) tallies[i].Add(others[i]);
}

}  // namespace

void FieldCounts::Counts::Add(const Counts& others) {
    field.Add(others.field);
    AddEach(others.codes, codes);
    for (std::size_t i = 0; i < indicators.size(); ++i) {
        AddEach(others.indicators[i], indicators[i]);
    }
}

FieldCounts::Counts& FieldCounts::CountsOf(std::string_view tag) {
    const unsigned number = TagNumber(tag);
    auto* place = number == kNoTag ? nullptr : &byNumber_[number];
    if (place == nullptr) {
        const auto known = others_.find(tag);
        place = known == others_.end() ? &others_[std::string(tag)] : &known->second;
    }
    if (!*place) *place = std::make_unique<Counts>();
    return **place;
}

void FieldCounts::Add(const Record& record) {
    ++records_;
    fields_ += record.fields.size();
    for (const zorby::CommFormatField& field : record.fields) {
        Counts& counts = CountsOf(field.tag);
        counts.field.Add(records_);
        if (field.IsControlField()) continue;
        ForEachSubfield(field.content, [&](char code, std::string_view) {
            ++subfields_;
            counts.codes[static_cast<unsigned char>(code)].Add(records_);
        });
        if (TagNumber(field.tag) == kNoTag || field.content.size() < kIndicators) continue;
        for (std::size_t i = 0; i < kIndicators; ++i) {
            counts.indicators[i][static_cast<unsigned char>(field.content[i])].Add(records_);
        }
    }
}

void FieldCounts::Add(const FieldCounts& others) {
    records_ += others.records_;
    fields_ += others.fields_;
    subfields_ += others.subfields_;
    others.ForEach(
        [this](const std::string& tag, const Counts& counts) { CountsOf(tag).Add(counts); });
}

}  // namespace quillory
