#include <quillory/exchange/OutputTarget.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/store/HomeFolder.h>

#include <algorithm>
#include <filesystem>
#include <fnmatch.h>
#include <optional>
#include <span>
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

bool IsOneFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// Files that the programs keep for themselves, and what they belong to.
struct OwnFiles {
    const char* pattern;
    const char* owner;
};

// In the folder of the settings. SQLite and the locks put files beside the store, and settings are
// written to a new file first.
constexpr OwnFiles kOwnFiles[] = {
    {"quillory.db", "the store"},
    {"quillory.db-wal", "the store"},
    {"quillory.db-shm", "the store"},
    {"quillory.db-journal", "the store"},
    {"quillory.db-*locks", "the store"},
    {"Quillory *.ini", "the settings"},
    {".Quillory *.new", "the settings"},
    {"settings.lock", "the settings"},
    {"CardPrntQ*.prn", "the cards queue"},
    {"LabelPrntQ*.prn", "the labels queue"},
    {"desk.ini", "the desk"},
};
// In the folder of journals, where the desk also puts records for the person.
constexpr OwnFiles kOwnJournals[] = {
    {"*.journal", "the desk"},
    {"*.journal.new", "the desk"},
    {"*.lock", "the desk"},
};

// Null for a name that matches none.
const char* OwnerByName(const fs::path& path, std::span<const OwnFiles> files) {
    const std::string name = path.filename().string();
    const auto own = std::ranges::find_if(files, [&name](const OwnFiles& one) {
        return fnmatch(one.pattern, name.c_str(), FNM_CASEFOLD) == 0;
    });
    return own == files.end() ? nullptr : own->owner;
}

// What a file of the programs in `folder` belongs to; null for any other. It may not be there yet,
// or be there under another name.
const char* OwnerIn(const fs::path& folder, std::span<const OwnFiles> files,
                    const std::string& path) {
    std::error_code error;
    const fs::path canonical = Canonical(path);
    const bool isInFolder = canonical.parent_path() == fs::weakly_canonical(folder, error);
    const char* owner = isInFolder ? OwnerByName(canonical, files) : nullptr;
    const auto output = FileStatus(path, STDOUT_FILENO, IsStandardOutput(path));
    if (owner != nullptr || !output) return owner;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        owner = OwnerByName(entry.path(), files);
        const auto own = owner == nullptr ? std::nullopt
                                          : FileStatus(entry.path().string(), STDIN_FILENO, false);
        if (own && IsOneFile(*own, *output)) return owner;
    }
    return nullptr;
}

}  // namespace

void CheckNotOurs(const std::string& path) {
    if (path.empty() || !HasHomeFolder()) return;
    const char* owner = OwnerIn(HomeFolder(), kOwnFiles, path);
    if (owner == nullptr) owner = OwnerIn(JournalFolder(), kOwnJournals, path);
    if (owner != nullptr) throw UsageError(path, {FaultCode::kIsOwnFile, {}, owner});
}

void CheckNotAnInput(const std::vector<std::string>& files, const std::string& path) {
    if (path.empty()) return;
    CheckNotOurs(path);
    const bool isStandard = IsStandardOutput(path);
    const auto output = FileStatus(path, STDOUT_FILENO, isStandard);
    if (!output) return;
    for (const std::string& file : files) {
        if (file == "-" && !isStandard) continue;  // it is read to its end before it is replaced
        const auto input = FileStatus(file, STDIN_FILENO, file == "-");
        if (input && IsOneFile(*input, *output)) {
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
