#pragma once

#include <quillory/rules/CheckSettings.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

// Which file of settings for checks is in force.
struct CheckSettingsChoice {
    std::string file;     // that is asked for; empty: what stands beside the input, or at home
    bool isNone = false;  // none at all
};

// The file's path: the one asked for, or else a quillory-check.toml beside the first input that has
// one, or else that of the settings' folder. Nothing if there is none, or none is wanted. Standard
// input has nothing beside it. Throws UsageError if inputs have different ones beside them, and
// FileError for one that is no file.
std::optional<std::string> FindCheckSettings(const CheckSettingsChoice& choice,
                                             const std::vector<std::string>& inputs);

// A file of settings for checks, which is read once, and taken by each who checks.
class CheckSettingsFile {
public:
    // Nothing for none. Throws FileError.
    explicit CheckSettingsFile(const std::optional<std::string>& path);

    // As ReadCheckSettings; without a file, all is as the rules themselves have it.
    CheckSettings Read(const ConditionTools& tools) const;

private:
    std::optional<std::string> path_;
    std::string text_;
};

}  // namespace quillory
