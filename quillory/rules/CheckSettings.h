#pragma once

#include <quillory/rules/OwnRules.h>
#include <quillory/rules/RuleChoice.h>
#include <quillory/text/Charset.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// What a library has checks hold records against.
struct CheckSettings {
    RuleChoice choice;
    std::optional<Severity> failsOn;
    OwnRules own;
};

// How the conditions of own rules look at records.
struct ConditionTools {
    Charset charset = kCharsetAuto;  // of the records; auto: each record is asked
    ValidityTest isValid = {};       // what "valid" means
};

// Reads them from TOML:
//   only, skip      lists of names of rules,
//   fail-on         a severity,
//   [severity]      a severity, or "off", for each name of a rule,
//   [[rule]]        a rule of the library's own: id, where and message, and if they are wanted
//                   severity, place, why, example and exact.
// `name` is that of the file. Throws FileError with it, the line and the column.
CheckSettings ReadCheckSettings(std::string_view toml, const std::string& name,
                                const ConditionTools& tools);

}  // namespace quillory
