#include <quillory/arguments/Program.h>
#include <quillory/arguments/StandardStreams.h>
#include <quillory/exchange/Output.h>
#include <quillory/text/Visible.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <unistd.h>

namespace quillory {
namespace {

constexpr int kFailed = 2;

int Print(std::string_view text) {
    WriteOutput("-", text);
    return kWell;
}

void Say(const std::string& program, const std::string& text) {
    const std::string shown = isatty(STDERR_FILENO) != 0 ? VisibleLines(text) : text;
    std::fprintf(stderr, "%s: %s\n", program.c_str(), shown.c_str());
}

int Answer(const std::string& name, const Call& call) {
    if (!call.text.empty()) return Print(call.text);
    if (call.error.empty()) return call.run();
    Say(name, call.error);
    std::fprintf(stderr, "Run %s --help for more.\n", call.command.c_str());
    return kFailed;
}

}  // namespace

int RunProgram(Arguments& program, int argc, const char* const* argv) {
    ReserveStandardStreams();
    RemoveUnfinishedFilesOnSignals();
    const std::string& name = program.Name();
    try {
        return Answer(name,
                      program.Parse({argv + std::min(argc, 1), argv + argc}, ColumnsOfHelp()));
    } catch (const ClosedPipe&) {
        return kWell;
    } catch (const std::exception& error) {
        Say(name, error.what());
        return kFailed;
    }
}

}  // namespace quillory
