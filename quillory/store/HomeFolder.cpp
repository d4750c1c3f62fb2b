#include <quillory/store/HomeFolder.h>

#include <cstdlib>
#include <string>

namespace quillory {
namespace {

namespace fs = std::filesystem;

fs::path PathIn(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? fs::path() : fs::path(value);
}

}  // namespace

fs::path HomeFolder() {
    if (fs::path home = PathIn("QUILLORY_HOME"); !home.empty()) return home;
    if (const fs::path data = PathIn("XDG_DATA_HOME"); !data.empty()) return data / "quillory";
    return PathIn("HOME") / ".local" / "share" / "quillory";
}

}  // namespace quillory
