#pragma once

#include <zorby/format/MARCFormat.h>

#include <tuple>
#include <utility>

#include <tools/zorby-data/Compiler.h>
#include <tools/zorby-data/Dump.h>

namespace datatool {

// The dictionary of the MARC 21 format.
class FormatCompiler : public TableCompiler {
public:
    using TableCompiler::TableCompiler;

    zorby::CObject& Dictionary() override { return format_; }

private:
    std::vector<SectionTaker> Takers() override;
    void CheckReferences() override;
    std::string Dump() const override { return DumpFormat(format_); }

    // Of a row, in the order of the dictionary's fields.
    struct FieldPlaces {
        Place first;
        Place second;
    };
    struct Reference {
        unsigned tag = 0;
        Place place;
    };
    using Indicator = std::pair<unsigned, int>;              // tag, 1 or 2
    using IndicatorValue = std::tuple<unsigned, int, char>;  // and the value as stored

    void TakeName(Row& row);
    void TakeField(Row& row);
    void TakeSubfield(Row& row);
    void TakeIndicatorName(Row& row);
    void TakeIndicatorValue(Row& row);
    void TakeIndicatorExplanation(Row& row);
    unsigned TagOfField(Row& row);
    void CheckDefault(int field, int which, const Place& place);

    zorby::CMARCFormat format_;
    std::vector<FieldPlaces> fieldPlaces_;
    std::vector<Reference> references_;
    Keys<int> names_;
    Keys<unsigned> tags_;
    Keys<std::pair<unsigned, char>> codes_;
    Keys<Indicator> indicatorNames_;
    Keys<Indicator> explanations_;
    Keys<IndicatorValue> values_;
};

}  // namespace datatool
