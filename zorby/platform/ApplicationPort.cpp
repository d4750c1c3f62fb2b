#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/detail/LibraryFolder.h>
#include <zorby/platform/detail/PortSlot.h>

#include <filesystem>

namespace zorby {

namespace {

constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

class RunningProgram : public ApplicationPort {
public:
    std::string Folder() const override {
        const std::string program = ProgramFile().string();
        return program.substr(0, program.rfind(kSeparator) + 1);
    }

    char PathSeparator() const override { return kSeparator; }
    bool IsNTPlatform() const override { return kSeparator == '\\'; }
};

}  // namespace

ApplicationPort& CurrentApplicationPort() {
    return SlotOf<ApplicationPort, RunningProgram>().Get();
}

void SetApplicationPort(ApplicationPort* port) {
    SlotOf<ApplicationPort, RunningProgram>().Set(port);
}

}  // namespace zorby
