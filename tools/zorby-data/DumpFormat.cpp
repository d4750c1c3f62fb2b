#include <algorithm>

#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/Dump.h>
#include <tools/zorby-data/SourceWriter.h>

namespace datatool {
namespace {

using std::to_string;
using zorby::CMARCFormat;

// The sign that a source has for a blank.
std::string IndicatorCell(char stored) {
    return stored == '_' ? "#" : CodeCell(stored);
}

std::string TagAt(const auto& list, int at) {
    return at < list.GetSize() ? "tag " + TagCell(list.GetAt(at)->GetTag()) : "none";
}

// A source has the default indicators in the rows of the fields.
void CheckDefaultsGoWithFields(const CMARCFormat& format) {
    const auto& fields = format.GetFields();
    const auto& defaults = format.GetIndicatorDefaults();
    for (int at = 0; at < std::max(fields.GetSize(), defaults.GetSize()); ++at) {
        const std::string field = TagAt(fields, at);
        const std::string indicators = TagAt(defaults, at);
        if (field == indicators) continue;
        std::string reason = "default indicators don't go with the fields: number ";
        reason += to_string(at + 1) + " of the fields is " + field;
        reason += ", of the default indicators " + indicators;
        throw NoSource(reason);
    }
}

void WriteName(const CMARCFormat& format, SourceWriter& writer) {
    writer.Open(kFormat);
    if (!format.GetName().empty()) writer.Row({EncodeCell(format.GetName())});
}

void WriteFields(const CMARCFormat& format, SourceWriter& writer) {
    writer.Open(kFields);
    for (int at = 0; at < format.GetFields().GetSize(); ++at) {
        const auto& field = *format.GetFields().GetAt(at);
        const auto& indicators = *format.GetIndicatorDefaults().GetAt(at);
        writer.Row({TagCell(field.GetTag()), EncodeCell(field.GetName()),
                    to_string(field.Repeatable()), to_string(field.Mandatory()),
                    IndicatorCell(indicators.GetIndicator(1)),
                    IndicatorCell(indicators.GetIndicator(2))});
    }
}

void WriteSubfields(const CMARCFormat& format, SourceWriter& writer) {
    writer.Open(kSubfields);
    for (int at = 0; at < format.GetSubfields().GetSize(); ++at) {
        const auto& subfield = *format.GetSubfields().GetAt(at);
        writer.Row({TagCell(subfield.GetTag()), CodeCell(subfield.GetCode()),
                    EncodeCell(subfield.GetName()), to_string(subfield.Repeatable()),
                    to_string(subfield.Mandatory()), to_string(subfield.Prompt()),
                    to_string(subfield.Priority())});
    }
}

void WriteIndicatorNames(const CMARCFormat& format, SourceWriter& writer) {
    writer.Open(kIndicatorNames);
    for (int at = 0; at < format.GetIndicatorNames().GetSize(); ++at) {
        const auto& name = *format.GetIndicatorNames().GetAt(at);
        writer.Row(
            {TagCell(name.GetTag()), to_string(name.GetWhich()), EncodeCell(name.GetName())});
    }
}

void WriteIndicatorValues(const CMARCFormat& format, SourceWriter& writer) {
    writer.Open(kIndicatorValues);
    for (int at = 0; at < format.GetIndicatorValues().GetSize(); ++at) {
        const auto& value = *format.GetIndicatorValues().GetAt(at);
        writer.Row({TagCell(value.GetTag()), to_string(value.GetWhich()),
                    IndicatorCell(value.GetValue()), EncodeCell(value.GetName())});
    }
}

void WriteIndicatorExplanations(const CMARCFormat& format, SourceWriter& writer) {
    writer.Open(kIndicatorExplanations);
    for (int at = 0; at < format.GetIndicatorExplanations().GetSize(); ++at) {
        const auto& explanation = *format.GetIndicatorExplanations().GetAt(at);
        writer.Row({TagCell(explanation.GetTag()), to_string(explanation.GetWhich()),
                    EncodeCell(explanation.GetExplanation())});
    }
}

}  // namespace

std::string DumpFormat(const CMARCFormat& format) {
    CheckDefaultsGoWithFields(format);
    SourceWriter writer;
    WriteName(format, writer);
    WriteFields(format, writer);
    WriteSubfields(format, writer);
    WriteIndicatorNames(format, writer);
    WriteIndicatorValues(format, writer);
    WriteIndicatorExplanations(format, writer);
    return writer.Text();
}

}  // namespace datatool
