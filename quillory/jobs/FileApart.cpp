#include <quillory/faults/Errors.h>
#include <quillory/jobs/FileApart.h>
#include <zorby/platform/ClockPort.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace quillory {
namespace {

constexpr mode_t kApartMode = 0600;

std::string Now() {
    const std::tm now = zorby::CurrentClockPort().LocalTime();
    char time[32];
    std::strftime(time, sizeof time, "%Y%m%d-%H%M%S", &now);
    return time;
}

}  // namespace

std::string MakeFileApart(const std::filesystem::path& folder) {
    const std::string name = "kept-" + Now();
    std::string path = (folder / (name + ".mrk")).string();
    for (int number = 2;; ++number) {
        const int made = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kApartMode);
        if (made >= 0) {
            close(made);
            return path;
        }
        if (errno != EEXIST) throw FileError(path + ": can't be made: " + std::strerror(errno));
        path = (folder / (name + '-' + std::to_string(number) + ".mrk")).string();
    }
}

}  // namespace quillory
