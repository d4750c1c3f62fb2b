#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
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

// Empty if nothing in the environment names it.
fs::path FindHome() {
    if (fs::path home = PathIn("QUILLORY_HOME"); !home.empty()) return home;
    if (const fs::path data = PathIn("XDG_DATA_HOME"); !data.empty()) return data / "quillory";
    if (const fs::path home = PathIn("HOME"); !home.empty()) {
        return home / ".local" / "share" / "quillory";
    }
    return {};
}

}  // namespace

bool HasHomeFolder() {
    return !FindHome().empty();
}

fs::path HomeFolder() {
    if (fs::path home = FindHome(); !home.empty()) return home;
    throw UsageError({FaultCode::kNoHomeFolder});
}

}  // namespace quillory
