#include <zorby/platform/detail/LibraryFolder.h>

#include <dlfcn.h>
#include <system_error>

namespace zorby {

std::filesystem::path LibraryFolder() {
    Dl_info info{};
    std::error_code error;
    if (dladdr(reinterpret_cast<const void*>(&LibraryFolder), &info) == 0) return {};
    return std::filesystem::canonical(info.dli_fname, error).parent_path();
}

std::filesystem::path ProgramFile() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

}  // namespace zorby
