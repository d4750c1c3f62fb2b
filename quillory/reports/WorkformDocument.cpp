#include <quillory/places/Tag.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/reports/WorkformDocument.h>
#include <quillory/reports/WorkformPlaces.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/QmText.h>

#include <map>
#include <utility>

namespace quillory {
namespace {

using zorby::CTemplate;

std::string Character(char c) {
    return QmToUtf8({&c, 1});
}

WorkformSubfield SubfieldOf(const CTemplate& workform, unsigned tag, char code) {
    std::string prompts, rules, reminders, examples;
    workform.SubfieldPrompt(tag, prompts);
    workform.SubfieldRules(tag, code, rules);
    workform.SubfieldReminders(tag, code, reminders);
    workform.SubfieldExamples(tag, code, examples);
    return {.code = Character(code),
            .name = SubfieldName(tag, code, zorby::EDO_NameOnly),
            .isPrompted = prompts.find(code) != prompts.npos,
            .isPriority = workform.SubfieldPriority(tag, code) > 0,
            .rules = QmLinesToUtf8(rules),
            .reminders = QmLinesToUtf8(reminders),
            .examples = QmLinesToUtf8(examples),
            .data = {}};
}

WorkformField FieldOf(const CTemplate& workform, unsigned tag) {
    return {.tag = TagText(tag),
            .name = FieldName(tag, zorby::EDO_NameOnly),
            .isPriority = workform.FieldPriority(tag) > 0,
            .subfields = {},
            .indicators = {}};
}

std::vector<WorkformField> FieldsOf(const CTemplate& workform) {
    std::vector<WorkformField> fields;
    unsigned tag = 0;
    for (int i = 0; const auto* data = workform.GetDefaultDataAt(i); ++i) {
        if (data->GetTag() != 0 || fields.empty()) {
            tag = data->GetTag();
            fields.push_back(FieldOf(workform, tag));
            fields.back().indicators =
                IndicatorText(data->GetIndicator(1)) + IndicatorText(data->GetIndicator(2));
        }
        WorkformSubfield subfield = SubfieldOf(workform, tag, data->GetSubCode());
        subfield.data = QmLinesToUtf8(data->GetDefaultData());
        fields.back().subfields.push_back(std::move(subfield));
    }
    return fields;
}

std::vector<WorkformField> OtherFieldsOf(const CTemplate& workform) {
    std::vector<WorkformField> fields;
    for (const auto& [tag, codes] : PlacesWithoutData(workform)) {
        WorkformField& field = fields.emplace_back(FieldOf(workform, tag));
        for (const char code : codes) field.subfields.push_back(SubfieldOf(workform, tag, code));
    }
    return fields;
}

// The indicators of a workform, by tag and number, as their parts come.
class Indicators {
public:
    WorkformIndicator& At(unsigned tag, int which) {
        WorkformIndicator& indicator = indicators_[{tag, which}];
        indicator.tag = TagText(tag);
        indicator.indicator = which;
        return indicator;
    }

    std::vector<WorkformIndicator> All() const {
        std::vector<WorkformIndicator> all;
        for (const auto& [place, indicator] : indicators_) all.push_back(indicator);
        return all;
    }

private:
    std::map<std::pair<unsigned, int>, WorkformIndicator> indicators_;
};

std::vector<WorkformIndicator> IndicatorsOf(const CTemplate& workform) {
    Indicators indicators;
    const auto& names = workform.GetIndicatorNames();
    for (int i = 0; i < names.GetSize(); ++i) {
        const auto& name = *names.GetAt(i);
        indicators.At(name.GetTag(), name.GetWhich()).name = QmLinesToUtf8(name.GetName());
    }
    const auto& defaults = workform.GetIndicatorDefaults();
    for (int i = 0; i < defaults.GetSize(); ++i) {
        for (const int which : {1, 2}) {
            const char value = defaults.GetAt(i)->GetIndicator(which);
            if (value == '\0') continue;
            indicators.At(defaults.GetAt(i)->GetTag(), which).defaultValue = IndicatorText(value);
        }
    }
    const auto& texts = workform.GetIndicatorExplanations();
    for (int i = 0; i < texts.GetSize(); ++i) {
        const auto& text = *texts.GetAt(i);
        indicators.At(text.GetTag(), text.GetWhich()).explanation =
            QmLinesToUtf8(text.GetExplanation());
    }
    return indicators.All();
}

// The date that stands there in a workform is replaced in every record.
void ExplainDate(DecodedField& field008) {
    for (DecodedElement& element : field008.elements) {
        if (element.place.first != 0) continue;
        element.state = ElementState::Free;
        element.text = "the day on which the record is made";
    }
}

std::vector<WorkformControlField> ControlFieldsOf(const CTemplate& workform,
                                                  const Decoder& decoder) {
    std::string leader, field006, field007, field008;
    workform.GetMainMaterial().GetAll(leader, field007, field008, field006);
    std::vector<WorkformControlField> fields;
    const auto add006And007 = [&] {
        if (!IsBlank(field006)) fields.push_back({field006, decoder.Field006(field006)});
        if (!IsBlank(field007)) fields.push_back({field007, decoder.Field007(field007)});
    };
    fields.push_back({leader, decoder.Leader(leader)});
    add006And007();
    if (!IsBlank(field008)) {
        fields.push_back({field008, decoder.Field008(field008, leader)});
        ExplainDate(fields.back().decoded);
    }
    for (int i = 0; i < workform.GetAMList().GetSize(); ++i) {
        workform.GetAMList().GetAt(i)->GetAll(field006, field007);
        add006And007();
    }
    return fields;
}

}  // namespace

WorkformDocument DescribeWorkform(const WorkformEntry& entry, const CTemplate& workform,
                                  const Decoder& decoder) {
    return {.row = RowOf(entry, workform),
            .controlFields = ControlFieldsOf(workform, decoder),
            .fields = FieldsOf(workform),
            .otherFields = OtherFieldsOf(workform),
            .indicators = IndicatorsOf(workform),
            .holdings = static_cast<int>(workform.GetHoldingsDataRecordList().GetSize())};
}

}  // namespace quillory
