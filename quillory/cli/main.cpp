#include <quillory/arguments/StandardStreams.h>
#include <quillory/cli/Commands.h>
#include <quillory/exchange/Output.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

namespace {

int RunProgram(int argc, char** argv) {
    using namespace quillory;
    CLI::App program("quillory: MARC 21 records on the command line", "quillory");
    program.set_version_flag("--version", "quillory " QUILLORY_VERSION);
    program.require_subcommand(1);
    Run run;
    AddConvert(program, run);
    AddExport(program, run);
    AddShow(program, run);
    AddCheck(program, run);
    AddRepair(program, run);
    AddDescribe(program, run);
    AddCodes(program, run);
    AddNew(program, run);
    AddCatalog(program, run);
    AddRecords(program, run);
    AddWorkforms(program, run);
    AddSettings(program, run);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? kStatusWell : kStatusFailed;
    }
    return run();
}

}  // namespace

int main(int argc, char** argv) {
    quillory::ReserveStandardStreams();
    quillory::RemoveUnfinishedFilesOnSignals();
    try {
        return RunProgram(argc, argv);
    } catch (const quillory::ClosedPipe&) {
        return quillory::kStatusWell;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quillory: %s\n", error.what());
        return quillory::kStatusFailed;
    }
}
