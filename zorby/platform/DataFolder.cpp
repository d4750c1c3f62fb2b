#include <zorby/platform/DataFolder.h>

#include <dlfcn.h>
#include <filesystem>
#include <system_error>

namespace zorby {
namespace {

namespace fs = std::filesystem;

// The folder of the shared library, or of the program that the library is a part of.
fs::path FolderOfLibrary() {
    Dl_info info{};
    std::error_code error;
    if (dladdr(reinterpret_cast<const void*>(&InstalledDataFolder), &info) == 0) return {};
    return fs::canonical(info.dli_fname, error).parent_path();
}

}  // namespace

std::string InstalledDataFolder() {
    constexpr const char* kInBuildTree = "../share/quillory";
    const fs::path library = FolderOfLibrary();
    for (const char* place : {ZORBY_DATA_FROM_LIBRARY, kInBuildTree}) {
        std::error_code error;
        const fs::path folder = (library / place).lexically_normal();
        if (fs::exists(folder / "MARCBibl.tfm", error)) return (folder / "").string();
    }
    return {};
}

}  // namespace zorby
