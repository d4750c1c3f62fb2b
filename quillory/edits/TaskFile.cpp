#include <quillory/edits/TaskFile.h>
#include <quillory/exchange/Nesting.h>
#include <quillory/exchange/TextPlace.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <optional>

#include <toml++/toml.h>

namespace quillory {
namespace {

constexpr const char* kEdit = "edit";
constexpr const char* kDo = "do";
constexpr const char* kWhere = "where";
constexpr const char* kOnlyWhen = "only-when";

// What a task can't be made of, and where it stands.
class TaskFault : public FaultError {
public:
    TaskFault(const toml::source_region& at, Fault fault)
        : FaultError(std::move(fault)), at_(at.begin) {}
    TaskFault(const toml::source_region& at, const FaultError& error)
        : FaultError(error), at_(at.begin) {}

    std::string Place() const {
        return std::to_string(at_.line) + ":" + std::to_string(at_.column);
    }

private:
    toml::source_position at_;
};

std::string TextOf(const toml::node& node) {
    if (const auto* text = node.as_string()) return text->get();
    if (const auto* number = node.as_integer()) return std::to_string(number->get());
    if (const auto* flag = node.as_boolean()) return flag->get() ? "true" : "false";
    throw TaskFault(node.source(), {FaultCode::kTaskValue});
}

// Keys have no blanks, so that a list of them needs no quotation marks.
std::string Listed(const std::vector<std::string_view>& names) {
    std::string text;
    for (const std::string_view name : names) {
        text.append(text.empty() ? "" : ", ").append(name);
    }
    return text;
}

RecordCondition ConditionOf(const toml::node* node, const TaskTools& tools) {
    if (node == nullptr) return {};
    try {
        return tools.condition(TextOf(*node));
    } catch (const UsageError& error) {
        throw TaskFault(node->source(), error);
    }
}

const OperationRow& RowOf(const toml::table& step) {
    const toml::node* name = step.get(kDo);
    if (name == nullptr) throw TaskFault(step.source(), {FaultCode::kParameterMissing, {}, kEdit});
    const std::string text = TextOf(*name);
    if (const OperationRow* row = OperationNamed(text)) return *row;
    std::vector<std::string_view> names;
    for (const OperationRow& row : Operations()) names.push_back(row.name);
    throw TaskFault(name->source(), {FaultCode::kNoOperation, {}, text, Listed(names)});
}

std::vector<std::string_view> KeysOf(const OperationRow& row) {
    std::vector<std::string_view> keys{kDo};
    for (const ParameterRow& parameter : row.parameters) keys.push_back(parameter.name);
    keys.insert(keys.end(), {kWhere, kOnlyWhen});
    return keys;
}

void CheckKeys(const toml::table& table, const std::vector<std::string_view>& keys) {
    for (const auto& [key, node] : table) {
        if (std::ranges::find(keys, key.str()) != keys.end()) continue;
        throw TaskFault(key.source(),
                        {FaultCode::kTaskKey, {}, std::string(key.str()), Listed(keys)});
    }
}

Parameters ParametersOf(const OperationRow& row, const toml::table& step) {
    Parameters parameters;
    for (const ParameterRow& parameter : row.parameters) {
        const toml::node* node = step.get(parameter.name);
        if (node != nullptr) parameters.Set(parameter.name, TextOf(*node));
    }
    return parameters;
}

EditStep ReadStep(const toml::table& table, const TaskTools& tools) {
    const OperationRow& row = RowOf(table);
    CheckKeys(table, KeysOf(row));
    EditStep step;
    step.operation = row.name;
    try {
        step.work = MakeOperation(row, ParametersOf(row, table), tools.edits);
    } catch (const ParameterError& error) {
        const toml::node* node = table.get(error.Parameter());
        throw TaskFault(node == nullptr ? table.source() : node->source(), error);
    }
    step.where = ConditionOf(table.get(kWhere), tools);
    step.onlyWhen = ConditionOf(table.get(kOnlyWhen), tools);
    return step;
}

EditTask ReadRoot(const toml::table& root, const TaskTools& tools) {
    CheckKeys(root, {kWhere, kEdit});
    EditTask task;
    task.where = ConditionOf(root.get(kWhere), tools);
    const toml::node* node = root.get(kEdit);
    const toml::array* steps = node == nullptr ? nullptr : node->as_array();
    if (steps == nullptr || steps->empty()) {
        throw TaskFault(node == nullptr ? root.source() : node->source(), {FaultCode::kNoEdits});
    }
    for (const toml::node& step : *steps) {
        const toml::table* table = step.as_table();
        if (table == nullptr) throw TaskFault(step.source(), {FaultCode::kNoEdits});
        task.steps.push_back(ReadStep(*table, tools));
    }
    return task;
}

}  // namespace

EditTask ReadTask(std::string_view toml, const std::string& name, const TaskTools& tools) {
    if (const auto at = TooDeepInToml(toml)) {
        const std::string place = LineColumnText(TextPlace().After(toml.substr(0, *at)));
        throw FileError(name + ", " + place,
                        {FaultCode::kTooDeep, {}, {}, std::to_string(kDeepestNesting)});
    }
    try {
        return ReadRoot(toml::parse(toml), tools);
    } catch (const toml::parse_error& error) {
        const TaskFault fault(error.source(),
                              {FaultCode::kMalformedToml, {}, std::string(error.description())});
        throw FileError(name + ":" + fault.Place(), fault.What());
    } catch (const TaskFault& fault) {
        throw FileError(name + ":" + fault.Place() + ": " + fault.what());
    }
}

}  // namespace quillory
