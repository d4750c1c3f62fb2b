#pragma once

#include <benchmarks/CatalogueRecord.h>
#include <filesystem>
#include <fstream>
#include <string>

namespace quillory::bench {

// A catalogue's record in ISO 2709.
inline std::string CatalogueBytes() {
    std::string record;
    zorby::bench::BuildCatalogueRecord().ConvertToUSMARCCommFormat(record);
    return record;
}

// A file of equal records that goes when the benchmark ends.
class RecordFile {
public:
    explicit RecordFile(std::size_t records, const std::string& record = CatalogueBytes())
        : path_(std::filesystem::temp_directory_path() / "quillory_bench.mrc") {
        std::ofstream file(path_, std::ios::binary);
        for (std::size_t i = 0; i < records; ++i) file << record;
    }
    ~RecordFile() { std::filesystem::remove(path_); }
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    std::string Path() const { return path_.string(); }
    std::size_t Size() const { return std::filesystem::file_size(path_); }

private:
    std::filesystem::path path_;
};

}  // namespace quillory::bench
