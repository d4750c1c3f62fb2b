#include <quillory/cli/EditArguments.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/edits/TaskFile.h>
#include <quillory/exchange/Input.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>
#include <cctype>

namespace quillory {
namespace {

std::string PositionalName(std::string_view parameter) {
    std::string name(parameter);
    std::ranges::transform(name, name.begin(), [](char c) { return std::toupper(c); });
    return name;
}

void DeclareParameter(Arguments& command, const ParameterRow& row, EditChoice& choice) {
    const std::string text(row.text);
    const std::string option = "--" + std::string(row.name);
    if (row.kind == ParameterKind::Flag) {
        command.Flag(option, choice.flags[row.name], text);
        return;
    }
    std::optional<std::string>& target = choice.texts[row.name];
    if (row.kind == ParameterKind::Positional) {
        command.Positional(PositionalName(row.name), target, text).Required();
        return;
    }
    if (row.kind == ParameterKind::Choice) {
        Choices<std::string> choices;
        for (const std::string& name : ChoicesOf(row)) choices.emplace_back(name, name);
        Argument& argument = command.Choice(option, target, choices, text);
        if (row.isRequired) argument.Required();
        return;
    }
    Argument& argument = command.Option(option, target, text);
    if (row.isRequired) argument.Required();
    if (row.name == "system") argument.OffersNow(OfferedHoldingsSystems);
}

Parameters ParametersOf(const EditChoice& choice) {
    Parameters parameters;
    for (const auto& [name, text] : choice.texts) {
        if (text) parameters.Set(name, *text);
    }
    for (const auto& [name, isSet] : choice.flags) {
        if (isSet) parameters.Set(name, "true");
    }
    return parameters;
}

// Records are asked for their character set. Empty for all records. `option` comes first in errors.
RecordCondition ConditionOf(const WhereOptions& where, const std::string& option) {
    if (where.AsksForAll()) return {};
    const auto filter = std::make_shared<RecordFilter>(where, kCharsetAuto, option);
    return [filter](const Record& record) { return filter->Takes(record); };
}

// Both have to hold.
void AddCondition(RecordCondition added, RecordCondition& condition) {
    if (!added) return;
    if (!condition) {
        condition = std::move(added);
        return;
    }
    condition = [one = std::move(added), other = std::move(condition)](const Record& record) {
        return one(record) && other(record);
    };
}

// A parameter as the command line has it.
std::string ArgumentName(const OperationRow& row, const std::string& parameter) {
    const auto found = std::ranges::find(row.parameters, parameter, &ParameterRow::name);
    const bool isPositional =
        found != row.parameters.end() && found->kind == ParameterKind::Positional;
    return isPositional ? PositionalName(parameter) : "--" + parameter;
}

HoldingsSystem HoldingsSystemOfFiles(const std::string& name) {
    LoadSettings();
    LoadDictionaries();
    return HoldingsSystemNamed(name);
}

void DeclareConditions(Arguments& command, EditChoice& choice) {
    command
        .Option("--where", choice.where.expression,
                "Edit only records that match, such as '245a contains \"rivers\" and not has 856u'")
        .Shown("EXPRESSION")
        .NeverEmpty();
    command
        .Option("--where-text", choice.where.condition,
                "Edit only records for which this condition holds, in the text form in which the "
                "library keeps conditions")
        .Shown("TEXT")
        .NeverEmpty();
    command.Flag("--exact", choice.where.exact,
                 "Case and diacritics count in what conditions compare");
    if (choice.row == nullptr) return;
    command
        .Option("--only-when", choice.onlyWhen,
                "Edit only fields that match by themselves, as if the record had no others")
        .Shown("EXPRESSION");
}

}  // namespace

void DeclareEditChoice(Arguments& command, const OperationRow* row, EditChoice& choice) {
    choice.row = row;
    if (row == nullptr) {
        command.Positional("TASK", choice.task, "A file of edits, in TOML").File();
    } else {
        for (const ParameterRow& parameter : row->parameters) {
            DeclareParameter(command, parameter, choice);
        }
    }
    DeclareConditions(command, choice);
}

const CodeLists& EditWork::Lists() {
    if (!lists_) lists_ = std::make_unique<CodeLists>(LoadCodeLists());
    return *lists_;
}

const std::string& EditWork::TextOf(const std::string& file) {
    if (!text_) {
        Input input(file);
        text_ = ReadWhole(input);
    }
    return *text_;
}

EditTask EditWork::TaskOf(const EditChoice& choice) {
    const TaskTools tools{{[this]() -> const CodeLists& { return Lists(); }, HoldingsSystemOfFiles},
                          [&](const std::string& text) {
                              return ConditionOf({text, choice.where.exact}, "");
                          }};
    if (choice.row == nullptr) {
        if (choice.task.empty()) {
            throw UsageError("an operation, or the file of a task, is missing");
        }
        EditTask task = ReadTask(TextOf(choice.task), choice.task, tools);
        AddCondition(ConditionOf(choice.where, "--where"), task.where);
        return task;
    }
    EditTask task;
    EditStep& step = task.steps.emplace_back();
    step.operation = choice.row->name;
    try {
        step.work = MakeOperation(*choice.row, ParametersOf(choice), tools.edits);
    } catch (const ParameterError& error) {
        throw UsageError(ArgumentName(*choice.row, error.Parameter()), error.What());
    }
    task.where = ConditionOf(choice.where, "--where");
    step.onlyWhen = ConditionOf({choice.onlyWhen, choice.where.exact}, "--only-when");
    return task;
}

}  // namespace quillory
