#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Listed.h>

#include <algorithm>

namespace quillory {
namespace {

using enum ParameterKind;

constexpr ParameterRow PlaceRow(std::string_view text) {
    return {"place", Positional, true, text};
}

constexpr ParameterRow AnyPlaceRow(std::string_view text) {
    return {"places", Text, false, text};
}

const std::vector<OperationRow>& Table() {
    static const std::vector<OperationRow> table{
        {"add",
         "Add a field, or a subfield to fields that are there",
         {PlaceRow("The field, such as 590, or the subfield, such as 245h"),
          {"text", Text, true, "Of a field as 10$aTitle /$cName., of a subfield its text"},
          {"at", Choice, false, "Where in the field the subfield goes", "end|start"}},
         MakeAdd},
        {"delete",
         "Delete fields or subfields",
         {PlaceRow("The fields or subfields: 856, 650[2], 9XX, 020c")},
         MakeDelete},
        {"rename",
         "Give fields another tag, or subfields another code",
         {PlaceRow("The fields, or subfields"), {"as", Text, true, "The tag, or the code"}},
         MakeRename},
        {"copy",
         "Copy fields or values to another place",
         {PlaceRow("A field, a subfield, or positions of a control field"),
          {"into", Text, true,
           "A tag for fields. For values a subfield: of the same field, or else of a new one"}},
         MakeCopy},
        {"move",
         "Move fields or values to another place",
         {PlaceRow("A field, a subfield, or a control field"), {"into", Text, true, "As for copy"}},
         MakeMove},
        {"build",
         "Make a field or a subfield of values that are there",
         {PlaceRow("A field, which is new, or a subfield, which goes into fields that are there"),
          {"text", Text, true, "The text, with places in braces: 10$a{245a} ({264c})"}},
         MakeBuild},
        {"replace",
         "Replace text in subfields and control fields",
         {PlaceRow("The subfields, such as 245ab, or fields with all their subfields"),
          {"text", Text, false, "What is replaced, letter by letter"},
          {"like", Text, false, "The same, with * for any text and ? for any character"},
          {"regex", Text, false, "The same, as a regular expression (RE2)"},
          {"with", Text, true, "What comes there; \\1 is a group of a regular expression"},
          {"ignore-case", Flag, false, "Capital and small letters are the same"},
          {"words", Flag, false, "Only where whole words match"},
          {"first", Flag, false, "Only the first match in each text"}},
         MakeReplace},
        {"force",
         "Make texts be, begin with or end with a text",
         {PlaceRow("The subfields, which fields get that lack them, or a control field"),
          {"text", Text, true, "The text"},
          {"at", Choice, false,
           "Whether it is the whole text, or stands at its start or end; where it stands already, "
           "nothing changes",
           "whole|start|end"}},
         MakeForce},
        {"indicators",
         "Change indicators",
         {PlaceRow("One indicator, such as 245/2, or fields with both"),
          {"value", Text, true, "One or two characters, _ for a blank"}},
         MakeIndicators},
        {"case",
         "Change capital and small letters",
         {PlaceRow("The subfields, or fields with all their subfields"),
          {"as", Choice, true,
           "fix: sentence case, but only for a text in capitals alone, and not for a single word "
           "in a field that has small letters elsewhere",
           "upper|lower|title|sentence|fix"}},
         MakeCase},
        {"trim",
         "Take blanks or other signs off the ends of texts",
         {PlaceRow("The subfields, or fields with all their subfields"),
          {"signs", Text, false,
           "The signs to be taken off, such as \" ,:/\"; blanks if not given"},
          {"at", Choice, false, "At which end", "both|start|end"}},
         MakeTrim},
        {"sort-fields",
         "Put fields in the order of their tags; those of one tag keep theirs",
         {AnyPlaceRow("The fields, which take each other's places; all if not given")},
         MakeSortFields},
        {"order-subfields",
         "Put the subfields of fields in order; those of one code keep theirs",
         {PlaceRow("The fields"),
          {"codes", Text, false,
           "The codes in their order, others after them; letters, then digits, if not given"}},
         MakeOrderSubfields},
        {"remove-empty",
         "Remove subfields without text, and fields without any",
         {AnyPlaceRow("The fields or subfields; all if not given")},
         MakeRemoveEmpty},
        {"remove-double",
         "Remove fields, or subfields of a field, that stand there twice",
         {AnyPlaceRow("The fields or subfields; all fields if not given")},
         MakeRemoveDouble},
        {"set",
         "Set positions of control fields to codes that the format has there",
         {PlaceRow("The positions, such as 008/35-37, 006m/05 or leader/17"),
          {"value", Text, true, "The code, # for a blank"}},
         MakeSet},
        {"move-element",
         "Move values of copies from one holdings element to another",
         {{"elements", Positional, true, "The elements by name or number, divided by commas"},
          {"into", Text, true,
           "The element that each goes to, in the same order: its own value gives way"},
          {"system", Text, false,
           "The holdings system of the records; that of the settings if not given"}},
         MakeMoveElement},
    };
    return table;
}

bool IsSaid(const ParameterRow& row, const Parameters& parameters) {
    return parameters.Has(row.name);
}

void CheckChoice(const ParameterRow& row, const Parameters& parameters) {
    const auto choices = ChoicesOf(row);
    const std::string value = parameters.Text(row.name);
    if (std::ranges::find(choices, value) != choices.end()) return;
    throw ParameterError(row.name, {FaultCode::kNoSuchChoice, {}, value, Listed(choices)});
}

}  // namespace

std::span<const OperationRow> Operations() {
    return Table();
}

const OperationRow* OperationNamed(std::string_view name) {
    const auto found = std::ranges::find(Table(), name, &OperationRow::name);
    return found == Table().end() ? nullptr : &*found;
}

std::vector<std::string> ChoicesOf(const ParameterRow& row) {
    std::vector<std::string> choices;
    for (std::string_view rest = row.choices; !rest.empty();) {
        const std::size_t size = std::min(rest.find('|'), rest.size());
        choices.emplace_back(rest.substr(0, size));
        rest.remove_prefix(std::min(size + 1, rest.size()));
    }
    return choices;
}

std::unique_ptr<Operation> MakeOperation(const OperationRow& row, const Parameters& parameters,
                                         const EditTools& tools) {
    for (const ParameterRow& parameter : row.parameters) {
        if (parameter.isRequired && !IsSaid(parameter, parameters)) {
            throw ParameterError(parameter.name,
                                 {FaultCode::kParameterMissing, {}, std::string(row.name)});
        }
        const bool isChoice = parameter.kind == ParameterKind::Choice;
        if (isChoice && IsSaid(parameter, parameters)) CheckChoice(parameter, parameters);
    }
    return row.make(parameters, tools);
}

}  // namespace quillory
