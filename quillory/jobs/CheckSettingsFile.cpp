#include <quillory/exchange/Input.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/CheckSettingsFile.h>
#include <quillory/store/HomeFolder.h>

#include <filesystem>

namespace quillory {
namespace {

namespace fs = std::filesystem;

constexpr const char* kName = "quillory-check.toml";

// Empty if the folder has none. What has the name and can't be read is not taken for none: it may
// hold rules that would stop a record.
fs::path FileIn(const fs::path& folder) {
    std::error_code failed;
    fs::path file = folder / kName;
    if (!fs::exists(fs::symlink_status(file, failed))) return {};
    const fs::file_status status = fs::status(file, failed);
    if (fs::is_regular_file(status)) return file;
    throw FileError(file.string() + ": the settings for checks can't be read: " +
                    (failed ? failed.message() : "it is not a file"));
}

bool AreOne(const fs::path& one, const fs::path& other) {
    std::error_code failed;
    return one == other || fs::equivalent(one, other, failed);
}

// Beside the inputs.
fs::path FileBeside(const std::vector<std::string>& inputs) {
    fs::path found;
    for (const std::string& input : inputs) {
        if (input == "-") continue;
        const fs::path file = FileIn(fs::path(input).parent_path());
        if (file.empty() || AreOne(file, found)) continue;
        if (!found.empty()) {
            throw UsageError(found.string() + " and " + file.string() +
                             " both set rules; check their folders one by one, or name one of the "
                             "files with --config");
        }
        found = file;
    }
    return found;
}

}  // namespace

std::optional<std::string> FindCheckSettings(const CheckSettingsChoice& choice,
                                             const std::vector<std::string>& inputs) {
    if (choice.isNone) return std::nullopt;
    if (!choice.file.empty()) return choice.file;
    fs::path file = FileBeside(inputs);
    if (file.empty() && HasHomeFolder()) file = FileIn(HomeFolder());
    if (file.empty()) return std::nullopt;
    return file.string();
}

CheckSettingsFile::CheckSettingsFile(const std::optional<std::string>& path) : path_(path) {
    if (!path) return;
    Input input(*path);
    text_ = ReadWhole(input);
}

CheckSettings CheckSettingsFile::Read(const ConditionTools& tools) const {
    return path_ ? ReadCheckSettings(text_, *path_, tools) : CheckSettings();
}

}  // namespace quillory
