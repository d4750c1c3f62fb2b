#include <quillory/exchange/Input.h>
#include <quillory/jobs/OutputFiles.h>

#include <filesystem>

namespace quillory {
namespace {

namespace fs = std::filesystem;

// Of a path that may not be there yet, links and steps such as "./" followed.
fs::path Canonical(const std::string& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    const fs::path canonical = fs::weakly_canonical(absolute, error);
    return error ? absolute.lexically_normal() : canonical;
}

// A file may have two names as a hard link, or a path two spellings before the file is there.
bool AreTheSameFile(const std::string& one, const std::string& other) {
    if (one == other) return true;
    if (one == "-" || other == "-" || other.empty()) return false;
    std::error_code error;
    return fs::equivalent(one, other, error) || Canonical(one) == Canonical(other);
}

}  // namespace

void CheckNotAnInput(const std::vector<std::string>& files, const std::string& path) {
    if (path.empty() || path == "-") return;
    for (const std::string& file : files) {
        if (file != "-" && Input(file).IsSameFileAs(path)) {
            throw UsageError(path + ": is an input, and would be overwritten");
        }
    }
}

void CheckNotTheSame(const std::string& path, const std::string& other, std::string_view contents) {
    if (path.empty() || path == "/dev/null" || !AreTheSameFile(path, other)) return;
    throw UsageError(path + ": can't take both " + std::string(contents));
}

}  // namespace quillory
