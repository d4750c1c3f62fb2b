#include <quillory/exchange/OutputTarget.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/store/HomeFolder.h>

#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace quillory {
namespace {

namespace fs = std::filesystem;

// Where an output of this name comes to lie, which may not be there yet: links and steps such as
// "./" followed.
fs::path Canonical(const std::string& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(OutputTargetOf(path).path, error);
    const fs::path canonical = fs::weakly_canonical(absolute, error);
    return error ? absolute.lexically_normal() : canonical;
}

// A file may have two names as a hard link, or a path two spellings before the file is there.
bool AreTheSameFile(const std::string& one, const std::string& other) {
    if (one == other) return true;
    if (other.empty()) return false;
    if (IsStandardOutput(one) || IsStandardOutput(other)) {
        return IsStandardOutput(one) && IsStandardOutput(other);
    }
    std::error_code error;
    return fs::equivalent(one, other, error) || Canonical(one) == Canonical(other);
}

// What an input or an output is, if it is a file. Nothing is opened: a named pipe can be only once.
std::optional<struct stat> FileStatus(const std::string& path, int standardStream,
                                      bool isStandard) {
    struct stat status {};
    const int result = isStandard ? fstat(standardStream, &status) : stat(path.c_str(), &status);
    if (result != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return status;
}

}  // namespace

void CheckNotAnInput(const std::vector<std::string>& files, const std::string& path) {
    if (path.empty()) return;
    if (HasHomeFolder()) CheckNotTheStore(path);
    const bool isStandard = IsStandardOutput(path);
    const auto output = FileStatus(path, STDOUT_FILENO, isStandard);
    if (!output) return;
    for (const std::string& file : files) {
        if (file == "-" && !isStandard) continue;  // it is read to its end before it is replaced
        const auto input = FileStatus(file, STDIN_FILENO, file == "-");
        if (input && input->st_dev == output->st_dev && input->st_ino == output->st_ino) {
            throw UsageError((isStandard ? "standard output" : path) +
                             ": is an input, and would be overwritten");
        }
    }
}

void CheckNotTheSame(const std::string& path, const std::string& other, std::string_view contents) {
    if (path.empty() || path == "/dev/null" || !AreTheSameFile(path, other)) return;
    throw UsageError(path + ": can't take both " + std::string(contents) +
                     (path != "-" && IsStandardOutput(path) ? "; it is standard output" : ""));
}

}  // namespace quillory
