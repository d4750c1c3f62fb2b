#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/edits/Operation.h>
#include <quillory/edits/Parameters.h>
#include <quillory/holdings/HoldingsSystem.h>

#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace quillory {

enum class ParameterKind { Positional, Text, Choice, Flag };

// What an operation takes, by the same name on the command line and in the file of a task.
struct ParameterRow {
    std::string_view name;
    ParameterKind kind;
    bool isRequired;
    std::string_view text;
    std::string_view choices = {};  // of a choice: "upper|lower"; the first stands if none is made
};

// What operations are made with.
struct EditTools {
    // The codes of the control fields, asked for by the operations that need them.
    std::function<const CodeLists&()> codeLists;
    // The holdings system of a name, or that of the settings for an empty name. Throws UsageError.
    std::function<HoldingsSystem(const std::string& name)> holdingsSystem;
};

struct OperationRow {
    std::string_view name;
    std::string_view summary;
    std::vector<ParameterRow> parameters;
    // Throws ParameterError.
    std::unique_ptr<Operation> (*make)(const Parameters& parameters, const EditTools& tools);
};

// All there are: for the command line, for files of tasks and for help.
std::span<const OperationRow> Operations();

// Null if there is none of that name.
const OperationRow* OperationNamed(std::string_view name);

// Holds the parameters against the row, and makes the operation. Throws ParameterError.
std::unique_ptr<Operation> MakeOperation(const OperationRow& row, const Parameters& parameters,
                                         const EditTools& tools);

// The choices of a row of that kind, one after the other.
std::vector<std::string> ChoicesOf(const ParameterRow& row);

}  // namespace quillory
