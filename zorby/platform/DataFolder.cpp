#include <zorby/platform/DataFolder.h>
#include <zorby/platform/detail/LibraryFolder.h>

#include <filesystem>
#include <system_error>

namespace zorby {

std::string InstalledDataFolder() {
    namespace fs = std::filesystem;
    constexpr const char* kInBuildTree = "../share/quillory";
    const fs::path library = LibraryFolder();
    for (const char* place : {ZORBY_DATA_FROM_LIBRARY, kInBuildTree}) {
        std::error_code error;
        const fs::path folder = (library / place).lexically_normal();
        if (fs::exists(folder / "MARCBibl.tfm", error)) return (folder / "").string();
    }
    return {};
}

}  // namespace zorby
