#include <quillory/jobs/SaveObstacle.h>

#include <filesystem>
#include <sys/statvfs.h>
#include <system_error>
#include <unistd.h>

namespace quillory {

std::string ObstacleToSaving(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path folder = fs::absolute(path, error).parent_path();
    struct statvfs disk {};
    const bool isKnown = statvfs(folder.c_str(), &disk) == 0;
    const bool isReadOnly = isKnown && (disk.f_flag & ST_RDONLY) != 0;
    if (isReadOnly) return "it is on a disk that can't be written";
    if (access(path.c_str(), W_OK) != 0) return "you may not write it";
    if (access(folder.c_str(), W_OK | X_OK) != 0) return "you may not write in its folder";
    const std::uintmax_t size = fs::file_size(path, error);
    const std::uintmax_t room = std::uintmax_t{disk.f_bavail} * disk.f_frsize;
    if (isKnown && !error && room < size) return "its disk has no room for another copy of it";
    return {};
}

}  // namespace quillory
