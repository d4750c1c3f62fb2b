#include <quillory/faults/Errors.h>
#include <quillory/jobs/SettingsLock.h>
#include <quillory/store/HomeFolder.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace quillory {
namespace {

bool LockInTime(int descriptor) {
    constexpr std::chrono::seconds kPatience{10};
    constexpr std::chrono::milliseconds kPause{5};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const bool mayWait = errno == EWOULDBLOCK || errno == EINTR;
        if (!mayWait || std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

}  // namespace

SettingsLock::SettingsLock() {
    std::error_code error;
    std::filesystem::create_directories(HomeFolder(), error);
    const std::string path = (HomeFolder() / "settings.lock").string();
    constexpr mode_t kMode = 0666;
    descriptor_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kMode);
    if (descriptor_ < 0) throw FileError(path + ": can't be written: " + std::strerror(errno));
    if (LockInTime(descriptor_)) return;
    const std::string reason = errno == EWOULDBLOCK
                                   ? "another program has been changing the settings for long; "
                                     "try again when it has ended"
                                   : std::string("can't be locked: ") + std::strerror(errno);
    close(descriptor_);
    throw FileError(path + ": " + reason);
}

SettingsLock::~SettingsLock() {
    close(descriptor_);
}

}  // namespace quillory
