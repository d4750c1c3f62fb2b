#include <zorby/platform/detail/Descriptor.h>
#include <zorby/platform/detail/FileRewrite.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <optional>
#include <share.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>
#include <windows.h>

namespace zorby {

namespace {

namespace fs = std::filesystem;

Descriptor Open(const fs::path& path, int how, int share) {
    int number = -1;
    ::_wsopen_s(&number, path.c_str(), how | _O_BINARY | _O_NOINHERIT, share, _S_IREAD | _S_IWRITE);
    return Descriptor(number);
}

fs::path Beside(const fs::path& file, const char* ending) {
    return file.parent_path() / ("." + file.filename().string() + ending);
}

bool IsRegular(const Descriptor& file) {
    struct _stat64 status {};
    if (::_fstat64(file.Number(), &status) != 0) return false;
    if ((status.st_mode & S_IFMT) == S_IFREG) return true;
    errno = EINVAL;
    return false;
}

std::optional<std::string> Content(const fs::path& path) {
    const Descriptor file = Open(path, _O_RDONLY, _SH_DENYNO);
    if (!file.IsOpen() || !IsRegular(file)) return std::nullopt;
    std::string text;
    std::array<char, 16384> block{};
    while (true) {
        const int count = ::_read(file.Number(), block.data(), block.size());
        if (count < 0) return std::nullopt;
        if (count == 0) return text;
        text.append(block.data(), static_cast<std::size_t>(count));
    }
}

// Others have a file open for a moment. A program that was stopped in the middle may have it for
// longer, and nobody waits for that forever.
template <class Attempt>
bool KeepTrying(Attempt attempt) {
    constexpr std::chrono::seconds kPatience{10};
    constexpr std::chrono::milliseconds kPause{2};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!attempt()) {
        if (errno != EACCES || std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

// A file that only one can have open at a time, and that goes when it is closed.
std::optional<Descriptor> Lock(const fs::path& path) {
    std::optional<Descriptor> lock;
    const bool isHeld = KeepTrying([&] {
        lock.emplace(Open(path, _O_RDWR | _O_CREAT | _O_TEMPORARY, _SH_DENYRW));
        return lock->IsOpen();
    });
    if (!isHeld) lock.reset();
    return lock;
}

bool Write(const fs::path& path, std::string_view text) {
    Descriptor file = Open(path, _O_WRONLY | _O_CREAT | _O_TRUNC, _SH_DENYRW);
    if (!file.IsOpen()) return false;
    while (!text.empty()) {
        constexpr std::size_t kOneCall = 1U << 30U;
        const int written = ::_write(file.Number(), text.data(),
                                     static_cast<unsigned>(std::min(text.size(), kOneCall)));
        if (written <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::_commit(file.Number()) == 0 && file.Close();
}

// A file that is replaced keeps who may do what with it.
bool TakeName(const fs::path& fresh, const fs::path& file, bool isThere) {
    return KeepTrying([&] {
        const BOOL done = isThere
                              ? ReplaceFileW(file.c_str(), fresh.c_str(), nullptr,
                                             REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)
                              : MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_WRITE_THROUGH);
        if (done == 0) errno = GetLastError() == ERROR_SHARING_VIOLATION ? EACCES : EIO;
        return done != 0;
    });
}

}  // namespace

bool ReadFile(const std::string& path, std::string& text) {
    std::optional<std::string> content = Content(path);
    if (content) text = std::move(*content);
    return content.has_value();
}

bool RewriteFile(const std::string& path,
                 const std::function<std::string(std::string_view)>& change) {
    const fs::path file(path);
    const std::optional<Descriptor> lock = Lock(Beside(file, ".lock"));
    if (!lock) return false;
    const std::optional<std::string> old = Content(file);
    if (!old && errno != ENOENT) return false;
    const std::string_view oldText = old ? std::string_view(*old) : std::string_view();
    const std::string text = change(oldText);
    if (text == oldText) return true;
    constexpr int kForWriting = 2;
    if (old && ::_waccess(file.c_str(), kForWriting) != 0) return false;

    // The lock is held, so a file of this name was left by a run that was killed.
    const fs::path fresh = Beside(file, ".new");
    if (Write(fresh, text) && TakeName(fresh, file, old.has_value())) return true;
    const int reason = errno;
    std::error_code ignored;
    fs::remove(fresh, ignored);
    errno = reason;
    return false;
}

}  // namespace zorby
