#include <zorby/platform/detail/LibraryFolder.h>

#include <string>
#include <windows.h>

namespace zorby {

std::filesystem::path LibraryFolder() {
    constexpr DWORD kLongestPath = 32768;
    HMODULE module = nullptr;
    constexpr DWORD kHow =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (GetModuleHandleExW(kHow, reinterpret_cast<LPCWSTR>(&LibraryFolder), &module) == 0)
        return {};
    std::wstring name(kLongestPath, L'\0');
    name.resize(GetModuleFileNameW(module, name.data(), kLongestPath));
    return std::filesystem::path(name).parent_path();
}

}  // namespace zorby
