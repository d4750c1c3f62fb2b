#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <unistd.h>

namespace quillory {

// A file for one test, removed with it.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string_view bytes = {}, const std::string& ending = "")
        : path_((std::filesystem::temp_directory_path() /
                 ("quillory-test-" + std::to_string(getpid()) + "-" + std::to_string(count_++) +
                  ending))
                    .string()) {
        std::ofstream(path_, std::ios::binary) << bytes;
    }
    ~TemporaryFile() { std::filesystem::remove(path_); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Path() const { return path_; }
    std::string Read() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    inline static int count_ = 0;
    std::string path_;
};

}  // namespace quillory
