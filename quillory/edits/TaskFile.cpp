#include <quillory/edits/TaskFile.h>
#include <quillory/exchange/TomlTree.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Listed.h>

namespace quillory {
namespace {

constexpr const char* kEdit = "edit";
constexpr const char* kDo = "do";
constexpr const char* kWhere = "where";
constexpr const char* kOnlyWhen = "only-when";

RecordCondition ConditionOf(const TomlNode* node, const TaskTools& tools) {
    if (node == nullptr) return {};
    try {
        return tools.condition(node->Text());
    } catch (const UsageError& error) {
        throw TomlFault(node->at, error);
    }
}

const OperationRow& RowOf(const TomlNode& step) {
    const TomlNode* name = step.Get(kDo);
    if (name == nullptr) {
        throw TomlFault(step.at, ParameterError(kDo, {FaultCode::kParameterMissing, {}, kEdit}));
    }
    const std::string& text = name->Text();
    if (const OperationRow* row = OperationNamed(text)) return *row;
    std::vector<std::string_view> names;
    for (const OperationRow& row : Operations()) names.push_back(row.name);
    throw TomlFault(name->at, {FaultCode::kNoOperation, {}, text, Listed(names)});
}

std::vector<std::string_view> KeysOf(const OperationRow& row) {
    std::vector<std::string_view> keys{kDo};
    for (const ParameterRow& parameter : row.parameters) keys.push_back(parameter.name);
    keys.insert(keys.end(), {kWhere, kOnlyWhen});
    return keys;
}

Parameters ParametersOf(const OperationRow& row, const TomlNode& step) {
    Parameters parameters;
    for (const ParameterRow& parameter : row.parameters) {
        const TomlNode* node = step.Get(parameter.name);
        if (node != nullptr) parameters.Set(parameter.name, node->Text());
    }
    return parameters;
}

EditStep ReadStep(const TomlNode& table, const TaskTools& tools) {
    const OperationRow& row = RowOf(table);
    CheckKeys(table, KeysOf(row));
    EditStep step;
    step.operation = row.name;
    try {
        step.work = MakeOperation(row, ParametersOf(row, table), tools.edits);
    } catch (const ParameterError& error) {
        const TomlNode* node = table.Get(error.Parameter());
        throw TomlFault(node == nullptr ? table.at : node->at, error);
    }
    step.where = ConditionOf(table.Get(kWhere), tools);
    step.onlyWhen = ConditionOf(table.Get(kOnlyWhen), tools);
    return step;
}

EditTask ReadRoot(const TomlNode& root, const TaskTools& tools) {
    CheckKeys(root, {kWhere, kEdit});
    EditTask task;
    task.where = ConditionOf(root.Get(kWhere), tools);
    const TomlNode* node = root.Get(kEdit);
    if (node == nullptr || node->items.empty()) {
        throw TomlFault(node == nullptr ? root.at : node->at, {FaultCode::kNoEdits});
    }
    for (const TomlNode& step : node->items) {
        if (step.kind != TomlKind::Table) throw TomlFault(step.at, {FaultCode::kNoEdits});
        task.steps.push_back(ReadStep(step, tools));
    }
    return task;
}

}  // namespace

EditTask ReadTask(std::string_view toml, const std::string& name, const TaskTools& tools) {
    try {
        return ReadRoot(ReadToml(toml, name), tools);
    } catch (const TomlFault& fault) {
        throw InFile(name, fault);
    }
}

}  // namespace quillory
