#include <zorby/platform/detail/Descriptor.h>
#include <zorby/platform/detail/FileRewrite.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace zorby {

namespace {

// A new file beside the one that it will replace. It is deleted unless it does replace that file.
class Replacement {
public:
    Replacement(int folder, const std::string& name, mode_t mode)
        : folder_(folder), name_("." + name + ".new"), file_(Create(mode)) {}

    ~Replacement() {
        const int reason = errno;
        if (isLeftOver_) ::unlinkat(folder_, name_.c_str(), 0);
        errno = reason;
    }

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    bool IsOpen() const { return file_.IsOpen(); }

    bool TakeOver(const struct stat& old) {
        // Only root can give the file to its old owner. For others, the writer becomes the owner.
        if (::fchown(file_.Number(), old.st_uid, old.st_gid) != 0 && errno != EPERM) return false;
        return ::fchmod(file_.Number(), old.st_mode & 07777) == 0;
    }

    bool Write(std::string_view text) {
        while (!text.empty()) {
            const ssize_t written = ::write(file_.Number(), text.data(), text.size());
            if (written < 0 && errno != EINTR) return false;
            if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
        }
        return ::fsync(file_.Number()) == 0 && file_.Close();
    }

    bool Replace(const std::string& name) {
        if (::renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
        isLeftOver_ = false;
        // Some file systems can't sync a folder, and report EINVAL.
        return ::fsync(folder_) == 0 || errno == EINVAL;
    }

private:
    // The folder is locked, so a file of this name was left by a run that was killed.
    int Create(mode_t mode) {
        ::unlinkat(folder_, name_.c_str(), 0);
        const int file =
            ::openat(folder_, name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        isLeftOver_ = file >= 0;
        return file;
    }

    int folder_;
    std::string name_;
    bool isLeftOver_ = false;
    Descriptor file_;
};

bool ReadAll(int file, std::string& text) {
    std::array<char, 16384> block{};
    while (true) {
        const ssize_t count = ::read(file, block.data(), block.size());
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) text.append(block.data(), static_cast<std::size_t>(count));
    }
}

struct FileContent {
    std::string text;
    struct stat status {};
};

// Opens without blocking, since the file may be a pipe to which nobody writes.
std::optional<FileContent> ReadFileAt(int folder, const std::string& name) {
    const Descriptor file(::openat(folder, name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    FileContent content;
    if (!file.IsOpen() || ::fstat(file.Number(), &content.status) != 0) return std::nullopt;
    if (!S_ISREG(content.status.st_mode)) {
        errno = EINVAL;
        return std::nullopt;
    }
    if (!ReadAll(file.Number(), content.text)) return std::nullopt;
    return content;
}

// Follows the links one by one, since the last one may lead to a file that doesn't exist yet.
std::optional<std::filesystem::path> RealFile(std::filesystem::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
        if (links == kMostLinks) {
            errno = ELOOP;
            return std::nullopt;
        }
        path = path.parent_path() / std::filesystem::read_symlink(path, error);
    }
    return path;
}

// A program that was stopped in the middle keeps its lock: nobody waits for it forever.
bool Lock(int folder) {
    constexpr std::chrono::seconds kPatience{10};
    constexpr std::chrono::milliseconds kPause{2};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (::flock(folder, LOCK_EX | LOCK_NB) != 0) {
        const bool mayWait = errno == EWOULDBLOCK || errno == EINTR;
        if (!mayWait || std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

bool RewriteFileAt(int folder, const std::string& name,
                   const std::function<std::string(std::string_view)>& change) {
    const std::optional<FileContent> old = ReadFileAt(folder, name);
    if (!old && errno != ENOENT) return false;
    const std::string_view oldText = old ? std::string_view(old->text) : std::string_view();
    const std::string text = change(oldText);
    if (text == oldText) return true;
    if (old && ::faccessat(folder, name.c_str(), W_OK, AT_EACCESS) != 0) return false;

    // Private until it has the mode of the old file, which may hold secrets.
    Replacement replacement(folder, name, old ? 0600 : 0666);
    return replacement.IsOpen() && (!old || replacement.TakeOver(old->status)) &&
           replacement.Write(text) && replacement.Replace(name);
}

}  // namespace

bool ReadFile(const std::string& path, std::string& text) {
    std::optional<FileContent> content = ReadFileAt(AT_FDCWD, path);
    if (content) text = std::move(content->text);
    return content.has_value();
}

bool RewriteFile(const std::string& path,
                 const std::function<std::string(std::string_view)>& change) {
    const std::optional<std::filesystem::path> file = RealFile(path);
    if (!file) return false;
    const std::filesystem::path parent = file->has_parent_path() ? file->parent_path() : ".";
    const Descriptor folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder.IsOpen() && Lock(folder.Number()) &&
           RewriteFileAt(folder.Number(), file->filename().string(), change);
}

}  // namespace zorby
