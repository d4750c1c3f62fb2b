#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/FormatCompiler.h>

namespace datatool {
std::vector<SectionTaker> FormatCompiler::Takers() {
    return {
        {kFormat, [this](Row& row) { TakeName(row); }},
        {kFields, [this](Row& row) { TakeField(row); }},
        {kSubfields, [this](Row& row) { TakeSubfield(row); }},
        {kIndicatorNames, [this](Row& row) { TakeIndicatorName(row); }},
        {kIndicatorValues, [this](Row& row) { TakeIndicatorValue(row); }},
        {kIndicatorExplanations, [this](Row& row) { TakeIndicatorExplanation(row); }},
    };
}

void FormatCompiler::TakeName(Row& row) {
    format_.SetName(row.Text("name"));
    names_.Add(0, row.PlaceOf("name"), faults_);
}

void FormatCompiler::TakeField(Row& row) {
    const unsigned tag = row.Tag("tag");
    constexpr int kUnused = 0;
    format_.AddField(tag, row.Code("first"), row.Code("second"), row.Text("name"),
                     row.Flag("repeatable"), row.Flag("mandatory"), kUnused);
    fieldPlaces_.push_back({row.PlaceOf("first"), row.PlaceOf("second")});
    tags_.Add(tag, row.PlaceOf("tag"), faults_);
}

unsigned FormatCompiler::TagOfField(Row& row) {
    const unsigned tag = row.Tag("tag");
    references_.push_back({tag, row.PlaceOf("tag")});
    return tag;
}

void FormatCompiler::TakeSubfield(Row& row) {
    const unsigned tag = TagOfField(row);
    const char code = row.Code("code");
    format_.AddSubfield(tag, code, row.Text("name"), row.Flag("repeatable"), row.Flag("mandatory"),
                        row.Flag("prompt"), row.Flag("priority"));
    codes_.Add({tag, code}, row.PlaceOf("code"), faults_);
}

void FormatCompiler::TakeIndicatorName(Row& row) {
    const unsigned tag = TagOfField(row);
    const int which = row.Which("which");
    format_.AddIndicatorName(tag, which, row.Text("name"));
    indicatorNames_.Add({tag, which}, row.PlaceOf("which"), faults_);
}

void FormatCompiler::TakeIndicatorExplanation(Row& row) {
    const unsigned tag = TagOfField(row);
    const int which = row.Which("which");
    format_.AddIndicatorExpl(tag, which, row.Text("text"));
    explanations_.Add({tag, which}, row.PlaceOf("which"), faults_);
}

// The dictionary says how a blank is stored.
void FormatCompiler::TakeIndicatorValue(Row& row) {
    const unsigned tag = TagOfField(row);
    const int which = row.Which("which");
    format_.AddIndicatorValue(tag, which, row.Code("value"), row.Text("name"));
    const auto& values = format_.GetIndicatorValues();
    const char stored = values.GetAt(values.GetSize() - 1)->GetValue();
    values_.Add({tag, which, stored}, row.PlaceOf("value"), faults_);
}

void FormatCompiler::CheckReferences() {
    for (const Reference& reference : references_) {
        if (!tags_.Contains(reference.tag)) faults_.Add(reference.place, "no field has this tag");
    }
    int field = 0;
    for (const FieldPlaces& places : fieldPlaces_) {
        CheckDefault(field, 1, places.first);
        CheckDefault(field, 2, places.second);
        ++field;
    }
}

void FormatCompiler::CheckDefault(int field, int which, const Place& place) {
    const zorby::CInfoAboutIndicatorDefault* indicators =
        format_.GetIndicatorDefaults().GetAt(field);
    const unsigned tag = indicators->GetTag();
    if (tag < kFirstDataField || values_.Contains({tag, which, indicators->GetIndicator(which)})) {
        return;
    }
    faults_.Add(place, "the default is not among the values of this indicator");
}

}  // namespace datatool
