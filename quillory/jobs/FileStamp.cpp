#include <quillory/jobs/FileStamp.h>

#include <sys/stat.h>

namespace quillory {

FileStamp FileStamp::Of(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec};
}

}  // namespace quillory
