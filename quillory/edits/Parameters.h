#pragma once

#include <quillory/faults/Errors.h>
#include <quillory/queries/PlaceSet.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillory {

// A parameter that an operation can't take. The text names the parameter.
class ParameterError : public UsageError {
public:
    ParameterError(std::string_view parameter, Fault fault)
        : UsageError(std::string(parameter), std::move(fault)), parameter_(parameter) {}

    const std::string& Parameter() const { return parameter_; }

private:
    std::string parameter_;
};

// What is said of one operation, by the names of its parameters. What can't be understood throws
// ParameterError.
class Parameters {
public:
    void Set(std::string_view name, std::string value);

    bool Has(std::string_view name) const { return values_.find(name) != values_.end(); }
    // As it was given; empty if it was not.
    std::string Text(std::string_view name) const;
    bool Flag(std::string_view name) const { return Text(name) == "true"; }
    // UTF-8 that a field may hold: without control characters.
    std::string FieldText(std::string_view name) const;
    PlaceSet Places(std::string_view name) const;
    // One that stands alone: of one tag, and of one subfield at most.
    Place OnePlace(std::string_view name) const;

private:
    std::map<std::string, std::string, std::less<>> values_;
};

}  // namespace quillory
