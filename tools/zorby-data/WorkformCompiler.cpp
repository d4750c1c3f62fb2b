#include <algorithm>
#include <limits>
#include <map>

#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/WorkformCompiler.h>
#include <tools/zorby-data/WorkformNames.h>

namespace datatool {
namespace {

using namespace zorby;

constexpr int kHighestID = 99;
constexpr std::size_t kLeaderSize = 24;
constexpr std::size_t k006Size = 18;
constexpr std::size_t k008Size = 40;
constexpr std::size_t kIndicators = 2;

struct Kind006007 {
    MaterialType material;
    CFType type006;
    CFType type007;
};

template <class Value>
Value Named(const TomlTable& table, std::string_view key, Value otherwise,
            std::optional<Value> (*valueOf)(std::string_view)) {
    if (!table.Has(key)) return otherwise;
    const auto value = valueOf(table.Text(key));
    if (!value) table.Fault(key, "there is nothing of this name");
    return value.value_or(otherwise);
}

Kind006007 KindOf(const TomlTable& table) {
    return {Named(table, "material", MTBook, MaterialOf),
            Named(table, "form-006", CF006None, Form006Of),
            Named(table, "form-007", CF007None, Form007Of)};
}

std::size_t LengthOf007(CFType type007) {
    std::int32_t length = 0;
    const tagCFOFFSETENTRY* row = OffsetsFor007Type(type007);
    for (; row != nullptr && row->first >= 0; ++row) length = std::max(length, row->last + 1);
    return static_cast<std::size_t>(length);
}

std::string TextOrNone(const TomlTable& table, std::string_view key, std::size_t size) {
    std::string text = table.Text(key);
    return text.empty() ? text : table.Text(key, size);
}

std::string WithBlanks(std::string field) {
    std::ranges::replace(field, '#', ' ');
    return field;
}

void TakeMainMaterial(const TomlTable& source, CTemplate& workform) {
    const Kind006007 kind = KindOf(source);
    workform.ControlFieldsSetMain(
        kind.material, kind.type006, kind.type007, source.Text("leader", kLeaderSize), "",
        TextOrNone(source, "field-007", LengthOf007(kind.type007)),
        source.Text("field-008", k008Size), TextOrNone(source, "additional-006", k006Size));
}

void TakeAdditionalMaterials(const TomlTable& source, CTemplate& workform) {
    for (const TomlTable& table : source.Tables("additional")) {
        table.CheckKeys("material form-006 form-007 field-006 field-007", "");
        const Kind006007 kind = KindOf(table);
        auto entry = std::make_unique<CCFAdditionalMaterial>();
        entry->Create(kind.material, kind.type006, kind.type007, "", "");
        entry->Set006Complete(WithBlanks(table.Text("field-006", k006Size)));
        entry->Set007Complete(
            WithBlanks(TextOrNone(table, "field-007", LengthOf007(kind.type007))));
        workform.GetAMList().Add(std::move(entry));
    }
}

unsigned TagOf(const TomlTable& field) {
    const unsigned tag = field.Tag("tag");
    if (tag != 0 && tag < kFirstDataField) {
        field.Fault("tag", "is that of a control field, which has no subfields");
    }
    return tag;
}

// `codes` are those before it in the field. A code that isn't one character has a fault already.
void CheckCode(const TomlTable& field, const TomlTable::CodeAndText& subfield,
               const std::string& codes) {
    const char code = subfield.code;
    if (code == '\0') return;
    if (code == '$' || CTemplate::IsAnyValidSubfield(code) == 0) {
        field.Fault(subfield.place, "subfields", std::string(1, code) + " is no subfield code");
    } else if (codes.find(code) != codes.npos) {
        field.Fault(subfield.place, "subfields",
                    "$" + std::string(1, code) + " is in the field already");
    }
}

void TakeDefaultData(const TomlTable& field, unsigned tag, CTemplate& workform) {
    std::string indicators = field.Text("indicators", kIndicators);
    indicators.resize(kIndicators);
    bool isFirst = true;
    std::string codes;
    for (const TomlTable::CodeAndText& subfield : field.CodesAndTexts("subfields")) {
        const auto& [code, text, place] = subfield;
        CheckCode(field, subfield, codes);
        codes += code;
        if (isFirst) {
            workform.AddDefaultData(tag, indicators[0], indicators[1], code, text);
        } else {
            workform.AddDefaultData(code, text);
        }
        isFirst = false;
    }
}

void TakePromptAndPriorities(const TomlTable& field, unsigned tag, CTemplate& workform) {
    using Limits = std::numeric_limits<int>;
    if (field.Has("prompt")) workform.AddSubfieldPrompt(tag, field.Text("prompt"));
    if (field.Has("priority")) {
        workform.AddFieldPriority(tag, field.Number("priority", Limits::min(), Limits::max()));
    }
    if (field.Has("subfield-priority")) {
        workform.AddSubfieldPriority(tag, field.Text("subfield-priority"), 1);
    }
}

// A prompt is for all fields of the tag.
void CheckPrompts(const TomlTable& source, const CTemplate& workform) {
    for (const TomlTable& field : source.Tables("field")) {
        const unsigned tag = field.Tag("tag");
        for (const char code : field.Text("prompt")) {
            if (workform.DefaultDataIncludes(tag, code) != 0) continue;
            field.Fault("prompt", "no field of the tag has $" + std::string(1, code));
        }
    }
}

void TakeFields(const TomlTable& source, CTemplate& workform) {
    std::set<unsigned> tags;
    for (const TomlTable& field : source.Tables("field")) {
        field.CheckKeys("tag indicators subfields", "prompt priority subfield-priority");
        const unsigned tag = TagOf(field);
        TakeDefaultData(field, tag, workform);
        TakePromptAndPriorities(field, tag, workform);
        if (tags.insert(tag).second) continue;
        for (const char* key : {"prompt", "priority", "subfield-priority"}) {
            if (field.Has(key)) field.Fault(key, "stands with the first field of the tag");
        }
    }
    CheckPrompts(source, workform);
}

}  // namespace

void WorkformCompiler::Compile(const std::vector<std::string>& sources) {
    for (std::size_t file = 0; file < sources.size(); ++file) Read(file, sources[file]);
    if (readAll_ && !names_.Contains(CTemplateList::kFallbackName)) {
        faults_.Add({0, 1, 1}, std::string("there is no workform \"") +
                                   CTemplateList::kFallbackName + "\" in the sources");
    }
}

void WorkformCompiler::Read(std::size_t file, std::string_view text) {
    try {
        const toml::table root = toml::parse(text);
        TakeWorkform(TomlTable(root, file, faults_));
    } catch (const toml::parse_error& error) {
        const toml::source_position& place = error.source().begin;
        faults_.Add({file, place.line, place.column}, std::string(error.description()));
        readAll_ = false;
    }
}

void WorkformCompiler::TakeWorkform(const TomlTable& source) {
    source.CheckKeys(
        "name id base material form-006 form-007 leader field-008 field-007 additional-006 field",
        "help indicator additional");
    auto workform = std::make_unique<CTemplate>();
    TakeNames(source, *workform);
    TakeMainMaterial(source, *workform);
    TakeFields(source, *workform);
    TakeHelp(source, *workform);
    TakeIndicators(source, *workform);
    TakeAdditionalMaterials(source, *workform);
    workforms_.Add(std::move(workform));
}

// A source that couldn't be read may be the base.
void WorkformCompiler::TakeNames(const TomlTable& source, CTemplate& workform) {
    const std::string base = source.Text("base");
    if (readAll_ && !base.empty() && !names_.Contains(base)) {
        source.Fault("base", "no workform of this name stands before this");
    }
    const std::string name = source.Text("name");
    if (source.Has("name") && name.empty()) source.Fault("name", "is empty");
    if (!name.empty()) names_.Add(name, source.PlaceOf("name"), faults_);
    const int id = source.Number("id", 1, kHighestID);
    if (id != 0) ids_.Add(id, source.PlaceOf("id"), faults_);
    workform.SetBaseTemplateName(base);
    workform.SetName(name);
    workform.SetID(id);
}

void WorkformCompiler::TakeHelp(const TomlTable& source, CTemplate& workform) {
    Keys<std::pair<unsigned, char>> places;
    for (const TomlTable& help : source.Tables("help")) {
        help.CheckKeys("tag code", "rules reminders examples");
        const unsigned tag = help.Tag("tag");
        const char code = help.Code("code");
        places.Add({tag, code}, help.PlaceOf("tag"), faults_);
        workform.AddRET(tag, code, help.Text("rules"), help.Text("examples"),
                        help.Text("reminders"));
    }
}

void WorkformCompiler::TakeIndicators(const TomlTable& source, CTemplate& workform) {
    Keys<std::pair<unsigned, int>> places;
    std::vector<unsigned> tags;  // with a default, in order
    std::map<std::pair<unsigned, int>, char> defaults;
    for (const TomlTable& indicator : source.Tables("indicator")) {
        indicator.CheckKeys("tag which", "default name explanation");
        const unsigned tag = indicator.Tag("tag");
        const int which = indicator.Number("which", 1, 2);
        places.Add({tag, which}, indicator.PlaceOf("tag"), faults_);
        if (indicator.Has("name")) workform.AddIndicatorName(tag, which, indicator.Text("name"));
        if (indicator.Has("explanation")) {
            workform.AddIndicatorExpl(tag, which, indicator.Text("explanation"));
        }
        if (!indicator.Has("default")) continue;
        defaults[{tag, which}] = indicator.Code("default");
        if (std::ranges::find(tags, tag) == tags.end()) tags.push_back(tag);
    }
    for (const unsigned tag : tags) {
        workform.AddIndicatorDefault(tag, defaults[{tag, 1}], defaults[{tag, 2}]);
    }
}

}  // namespace datatool
