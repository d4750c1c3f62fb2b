#include <quillory/exchange/OutputTarget.h>
#include <quillory/faults/Errors.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace quillory {
namespace {

namespace fs = std::filesystem;

// The descriptor of a name such as /dev/fd/3; negative for any other.
int DescriptorOf(const fs::path& path) {
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        const std::string& text = path.native();
        if (!text.starts_with(folder)) continue;
        int number = -1;
        const char* end = text.data() + text.size();
        const auto read = std::from_chars(text.data() + folder.size(), end, number);
        if (read.ec == std::errc() && read.ptr == end) return number;
    }
    return -1;
}

// Whether a path leads to the very file that a descriptor is open for.
bool IsFileOf(const fs::path& path, int descriptor) {
    struct stat mine {};
    struct stat other {};
    return fstat(descriptor, &mine) == 0 && S_ISREG(mine.st_mode) &&
           stat(path.c_str(), &other) == 0 && mine.st_dev == other.st_dev &&
           mine.st_ino == other.st_ino;
}

}  // namespace

OutputTarget OutputTargetOf(const std::string& name) {
    constexpr int kMostLinks = 40;
    if (name.empty()) throw UsageError("the name of an output is empty");
    if (name == "-") return {STDOUT_FILENO, {}, false};
    OutputTarget target{-1, name, false};
    std::error_code error;
    for (int links = 0; links < kMostLinks; ++links) {
        target.descriptor = DescriptorOf(target.path);
        if (target.descriptor >= 0) return target;
        if (!fs::is_symlink(target.path, error)) break;
        target.path = target.path.parent_path() / fs::read_symlink(target.path, error);
    }
    if (fs::is_symlink(target.path, error)) throw FileError(name + ": " + std::strerror(ELOOP));
    if (IsFileOf(target.path, STDOUT_FILENO)) target.descriptor = STDOUT_FILENO;
    const fs::file_status status = fs::status(target.path, error);
    target.isFile = !fs::exists(status) || fs::is_regular_file(status);
    return target;
}

bool IsStandardOutput(const std::string& name) {
    return !name.empty() && OutputTargetOf(name).descriptor == STDOUT_FILENO;
}

}  // namespace quillory
