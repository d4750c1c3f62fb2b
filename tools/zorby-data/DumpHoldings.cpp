#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/Dump.h>
#include <tools/zorby-data/SourceWriter.h>

namespace datatool {
namespace {

using std::to_string;
using zorby::CInfoAboutHoldingsField;
using zorby::CInfoAboutHoldingsType;

void CheckNames(const CInfoAboutHoldingsType& type) {
    const std::string what = "holdings type " + to_string(type.GetHoldingsTypeID());
    const auto& names = type.GetNames();
    if (names.empty()) throw NoSource(what + " has no name");
    for (std::size_t at = 1; at < names.size(); ++at) {
        if (names[at].empty()) throw NoSource(what + " has an empty former name");
    }
}

void WriteNames(const CInfoAboutHoldingsType& type, SourceWriter& writer) {
    const auto& names = type.GetNames();
    writer.Open(kType);
    writer.Row({EncodeCell(names.front()), to_string(type.GetHoldingsTypeID()),
                to_string(type.GetTypeFlags()), to_string(type.GetTypeOption())});
    writer.Open(kFormerNames);
    for (std::size_t at = 1; at < names.size(); ++at) writer.Row({EncodeCell(names[at])});
}

void WriteElement(const CInfoAboutHoldingsField& field, SourceWriter& writer) {
    const char delimiter = field.GetRepeatDelimiter();
    writer.Row({EncodeCell(field.GetName()), to_string(field.GetHoldingsID()),
                TagCell(field.GetTag()), CodeCell(static_cast<char>(field.GetSubfield())),
                delimiter == '\0' ? "" : CodeCell(delimiter), to_string(field.OnePerRecord()),
                to_string(field.GetExtraValue()), EncodeCell(field.GetHelpText())});
}

void WriteType(const CInfoAboutHoldingsType& type, SourceWriter& writer) {
    CheckNames(type);
    WriteNames(type, writer);
    writer.Open(kElements);
    for (int at = 0; at < type.GetSize(); ++at) WriteElement(*type.GetAt(at), writer);
}

}  // namespace

std::string DumpHoldings(const zorby::CInfoAboutHoldingsTypeList& types) {
    SourceWriter writer;
    for (int at = 0; at < types.GetSize(); ++at) WriteType(*types.GetAt(at), writer);
    return writer.Text();
}

}  // namespace datatool
