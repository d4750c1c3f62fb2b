#include <zorby/platform/detail/LibraryFolder.h>

#include <string>
#include <windows.h>

namespace zorby {

namespace {

// The file of a module; of the program, if it is null.
std::filesystem::path FileOf(HMODULE module) {
    constexpr DWORD kLongestPath = 32768;
    std::wstring name(kLongestPath, L'\0');
    name.resize(GetModuleFileNameW(module, name.data(), kLongestPath));
    return name;
}

}  // namespace

std::filesystem::path LibraryFolder() {
    HMODULE module = nullptr;
    constexpr DWORD kHow =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (GetModuleHandleExW(kHow, reinterpret_cast<LPCWSTR>(&LibraryFolder), &module) == 0)
        return {};
    return FileOf(module).parent_path();
}

std::filesystem::path ProgramFile() {
    return FileOf(nullptr);
}

}  // namespace zorby
