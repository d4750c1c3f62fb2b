#pragma once

#include <functional>
#include <string>

namespace quillory {

struct Record;

// Which records a job works on.
struct WhereOptions {
    std::string expression;  // as ParseQuery reads it; empty for all records
    bool exact = false;      // case and diacritics count
    // A condition of the library, as ParseCondition reads it, that has to hold, too; or empty.
    std::string condition = {};
    // What "valid" means in the expression. Empty: what the settings say.
    std::function<bool(const Record& record)> isValid = {};

    bool AsksForAll() const { return expression.empty() && condition.empty(); }
};

}  // namespace quillory
