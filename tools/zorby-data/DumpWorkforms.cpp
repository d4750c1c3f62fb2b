#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include <tools/zorby-data/Dump.h>
#include <tools/zorby-data/SourceWriter.h>
#include <tools/zorby-data/TomlTable.h>
#include <tools/zorby-data/WorkformNames.h>

namespace datatool {
namespace {

using namespace zorby;

template <class Which>
using Position = std::pair<unsigned, Which>;  // tag, and a code or 1 or 2
template <class Which>
using Positions = std::vector<Position<Which>>;

// One order that keeps that of each list: next comes a head that stands further on in no list.
template <class Which>
Positions<Which> InOneOrder(std::array<Positions<Which>, 3> lists) {
    Positions<Which> merged;
    for (;;) {
        const auto isNext = [&](const Positions<Which>& list) {
            return !list.empty() && std::ranges::none_of(lists, [&](const auto& other) {
                return !other.empty() &&
                       std::find(other.begin() + 1, other.end(), list.front()) != other.end();
            });
        };
        const auto found = std::ranges::find_if(lists, isNext);
        if (found == lists.end()) break;
        merged.push_back(found->front());
        for (auto& list : lists) {
            if (!list.empty() && list.front() == merged.back()) list.erase(list.begin());
        }
    }
    for (const auto& list : lists) {
        if (list.empty()) continue;
        throw NoSource("tag " + TagCell(list.front().first) +
                       ": texts twice, or in different orders");
    }
    return merged;
}

void Line(std::string_view key, const std::string& value, std::string& source) {
    source += std::string(key) + " = " + value + '\n';
}

void TextLine(std::string_view key, std::string_view text, std::string& source) {
    Line(key, TomlText(text), source);
}

void Open(std::string_view table, unsigned tag, std::string& source) {
    source += "\n[[" + std::string(table) + "]]\n";
    TextLine("tag", TagCell(tag), source);
}

std::string CodeText(char code) {
    return TomlText({&code, 1});
}

void FieldLine(std::string_view key, std::string field, std::string& source) {
    std::ranges::replace(field, ' ', '#');
    TextLine(key, field, source);
}

template <class Value>
void NameLine(std::string_view key, Value value, std::string& source) {
    const std::string_view name = NameOf(value);
    if (name.empty()) {
        throw NoSource("no name for " + std::string(key) + " " + std::to_string(value));
    }
    TextLine(key, name, source);
}

void WriteKind(MaterialType material, CFType type006, CFType type007, std::string& source) {
    NameLine("material", material, source);
    NameLine("form-006", type006, source);
    NameLine("form-007", type007, source);
}

void WriteMain(const CTemplate& workform, std::string& source) {
    const bool isBase = workform.GetBaseTemplateName() == workform.GetName();
    CFType type006 = CF006None;
    CFType type007 = CF007None;
    std::string leader, block, field007, field008, second006;
    workform.GetMainMaterialSettings(type006, type007, leader, block, field007, field008,
                                     second006);
    TextLine("name", workform.GetName(), source);
    Line("id", std::to_string(workform.GetOwnID()), source);
    TextLine("base", isBase ? "" : workform.GetBaseTemplateName(), source);
    WriteKind(workform.GetMaterialType(), type006, type007, source);
    FieldLine("leader", leader, source);
    FieldLine("field-008", field008, source);
    FieldLine("field-007", field007, source);
    FieldLine("additional-006", second006, source);
}

// The first record of the tag, or null.
template <class List>
auto FirstOf(const List& list, unsigned tag) {
    int at = 0;
    while (at < list.GetSize() && list.GetAt(at)->GetTag() != tag) ++at;
    return list.GetAt(at);
}

void WritePromptAndPriorities(const CTemplate& workform, unsigned tag, std::string& source) {
    if (const auto* prompt = FirstOf(workform.GetPrompts(), tag)) {
        TextLine("prompt", prompt->GetCodes(), source);
    }
    if (const auto* priority = FirstOf(workform.GetFieldPriorities(), tag)) {
        Line("priority", std::to_string(priority->GetPriority()), source);
    }
    if (const auto* priority = FirstOf(workform.GetSubfieldPriorities(), tag)) {
        TextLine("subfield-priority", priority->GetCodes(), source);
    }
}

std::string SubfieldItem(const CInfoAboutDefaultData& data) {
    std::string code = CodeText(data.GetSubCode());
    if (data.GetDefaultData().empty()) return code;
    return "[" + code + ", " + TomlText(data.GetDefaultData()) + "]";
}

void WriteWorkformFields(const CTemplate& workform, std::string& source) {
    const CInfoAboutDefaultDataList& list = workform.GetDefaultData();
    for (int at = 0; at < list.GetSize();) {
        const CInfoAboutDefaultData& first = *list.GetAt(at);
        if (first.GetTag() == 0) throw NoSource("default data begins without a tag");
        Open("field", first.GetTag(), source);
        const std::array indicators{first.GetIndicatorRaw(1), first.GetIndicatorRaw(2)};
        TextLine("indicators", {indicators.data(), indicators.size()}, source);
        std::string subfields = SubfieldItem(first);
        while (++at < list.GetSize() && list.GetAt(at)->GetTag() == 0) {
            subfields += ", " + SubfieldItem(*list.GetAt(at));
        }
        Line("subfields", "[" + subfields + "]", source);
        if (FirstOf(list, first.GetTag()) == &first) {
            WritePromptAndPriorities(workform, first.GetTag(), source);
        }
    }
}

Positions<char> CodesOf(const auto& list) {
    Positions<char> positions;
    for (int at = 0; at < list.GetSize(); ++at) {
        positions.emplace_back(list.GetAt(at)->GetTag(), list.GetAt(at)->GetCode());
    }
    return positions;
}

void WriteHelp(const CTemplate& workform, std::string& source) {
    const auto write = [&](std::string_view key, const auto* help) {
        if (help != nullptr) TextLine(key, help->GetText(), source);
    };
    for (const auto& [tag, code] :
         InOneOrder<char>({CodesOf(workform.GetRules()), CodesOf(workform.GetReminders()),
                           CodesOf(workform.GetExamples())})) {
        Open("help", tag, source);
        Line("code", CodeText(code), source);
        write("rules", workform.GetRules().Find(tag, code));
        write("reminders", workform.GetReminders().Find(tag, code));
        write("examples", workform.GetExamples().Find(tag, code));
    }
}

Positions<int> IndicatorsOf(const auto& list) {
    Positions<int> positions;
    for (int at = 0; at < list.GetSize(); ++at) {
        positions.emplace_back(list.GetAt(at)->GetTag(), list.GetAt(at)->GetWhich());
    }
    return positions;
}

Positions<int> DefaultsOf(const CInfoAboutIndicatorDefaultList& list) {
    Positions<int> positions;
    for (int at = 0; at < list.GetSize(); ++at) {
        for (const int which : {1, 2}) {
            if (list.GetAt(at)->GetIndicator(which) != '\0') {
                positions.emplace_back(list.GetAt(at)->GetTag(), which);
            }
        }
    }
    return positions;
}

void WriteIndicators(const CTemplate& workform, std::string& source) {
    const auto& names = workform.GetIndicatorNames();
    const auto& explanations = workform.GetIndicatorExplanations();
    const auto& defaults = workform.GetIndicatorDefaults();
    for (const auto& [tag, which] :
         InOneOrder<int>({DefaultsOf(defaults), IndicatorsOf(names), IndicatorsOf(explanations)})) {
        Open("indicator", tag, source);
        Line("which", std::to_string(which), source);
        const char value = defaults.DefaultIndicator(tag, which);
        if (value != '\0') Line("default", CodeText(value), source);
        if (const auto* name = names.Find(tag, which)) TextLine("name", name->GetName(), source);
        if (const auto* explanation = explanations.Find(tag, which)) {
            TextLine("explanation", explanation->GetExplanation(), source);
        }
    }
}

void WriteAdditionalMaterials(const CTemplate& workform, std::string& source) {
    for (int at = 0; at < workform.GetAMList().GetSize(); ++at) {
        const CCFAdditionalMaterial& entry = *workform.GetAMList().GetAt(at);
        std::string field006, field007;
        entry.GetAll(field006, field007);
        source += "\n[[additional]]\n";
        WriteKind(entry.GetMaterialType(), entry.Get006Type(), entry.Get007Type(), source);
        FieldLine("field-006", field006, source);
        FieldLine("field-007", field007, source);
    }
}

// The place in the list, and the name as far as it has letters and digits of ASCII.
std::string FileName(int place, std::string_view name) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "%02d", place);
    std::string file = number.data();
    bool isApart = true;
    for (const char c : name) {
        const bool isPlain = ('a' <= c && c <= 'z') || ('0' <= c && c <= '9');
        const bool isCapital = 'A' <= c && c <= 'Z';
        if (isPlain || isCapital) {
            if (isApart) file += '-';
            file += isCapital ? static_cast<char>(c - 'A' + 'a') : c;
        }
        isApart = !isPlain && !isCapital;
    }
    return file + ".toml";
}

Source DumpWorkform(const CTemplate& workform, int place) {
    Source source{FileName(place, workform.GetName()), ""};
    try {
        WriteMain(workform, source.text);
        WriteWorkformFields(workform, source.text);
        WriteHelp(workform, source.text);
        WriteIndicators(workform, source.text);
        WriteAdditionalMaterials(workform, source.text);
    } catch (const NoSource& reason) {
        throw NoSource("workform " + std::to_string(place) + ": " + reason.what());
    }
    return source;
}

}  // namespace

std::vector<Source> DumpWorkforms(const CTemplateList& workforms) {
    if (workforms.GetSize() == 0) throw NoSource("there are no workforms");
    std::vector<Source> sources;
    sources.reserve(static_cast<std::size_t>(workforms.GetSize()));
    for (int at = 0; at < workforms.GetSize(); ++at) {
        sources.push_back(DumpWorkform(*workforms.GetAt(at), at + 1));
    }
    return sources;
}

}  // namespace datatool
