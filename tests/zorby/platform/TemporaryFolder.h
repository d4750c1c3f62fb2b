#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

// A folder of its own for a test, gone with everything in it afterwards.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            const std::string name = "zorby-" + std::to_string(random());
            path_ = std::filesystem::temp_directory_path() / name;
        } while (!std::filesystem::create_directory(path_));
    }

    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path(const std::string& name = "") const { return (path_ / name).string(); }

    std::string Read(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void Write(const std::string& name, const std::string& text) const {
        const std::filesystem::path path = path_ / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file << text;
        if (!file.flush()) throw std::runtime_error("can't write " + path.string());
    }

    std::ptrdiff_t FileCount() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }

private:
    std::filesystem::path path_;
};
