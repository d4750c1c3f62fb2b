#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/detail/PortSlot.h>

#include <filesystem>
#include <system_error>

namespace zorby {

namespace {

constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

class RunningProgram : public ApplicationPort {
public:
    std::string Folder() const override {
        std::error_code error;
        const std::string program = std::filesystem::read_symlink("/proc/self/exe", error).string();
        return program.substr(0, program.rfind(kSeparator) + 1);
    }

    char PathSeparator() const override { return kSeparator; }
    bool IsNTPlatform() const override { return false; }
};

}  // namespace

ApplicationPort& CurrentApplicationPort() {
    return SlotOf<ApplicationPort, RunningProgram>().Get();
}

void SetApplicationPort(ApplicationPort* port) {
    SlotOf<ApplicationPort, RunningProgram>().Set(port);
}

}  // namespace zorby
