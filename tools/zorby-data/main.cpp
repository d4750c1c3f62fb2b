#include <quillory/exchange/Output.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <functional>
#include <map>

#include <tools/zorby-data/Commands.h>

namespace {

using namespace datatool;

using Run = std::function<Status()>;

const std::map<std::string, Kind> kKinds{
    {"format", kKindFormat}, {"holdings", kKindHoldings}, {"workforms", kKindWorkforms}};

struct Options {
    std::string kind;
    std::string file;
    std::vector<std::string> sources;
    std::string output = "-";
};

CLI::Option* AddKind(CLI::App& command, const std::string& name, Options& options,
                     const std::string& text) {
    return command.add_option(name, options.kind, text)
        ->check(CLI::IsMember(kKinds).description(""))
        ->option_text("format|holdings|workforms");
}

void AddCompile(CLI::App& program, Options& options, Run& run) {
    CLI::App* command = program.add_subcommand("compile", "Compile sources into a data file");
    AddKind(*command, "KIND", options, "What the sources hold")->required();
    command->add_option("FILE", options.sources, "Sources, in the order of the data file")
        ->required();
    command->add_option("-o,--output", options.output, "The data file")->required();
    command->callback([&] {
        run = [&] {
            return CompileFiles(kKinds.at(options.kind), options.sources, options.output);
        };
    });
}

void AddDump(CLI::App& program, Options& options, Run& run) {
    CLI::App* command = program.add_subcommand("dump", "Write a data file as a source");
    command->add_option("FILE", options.file, "The data file")->required();
    AddKind(*command, "--kind", options, "What the file holds; told by its name if not given");
    command->add_option(
        "-o,--output", options.output,
        "The source, standard output if not given; for workforms the folder of their sources");
    command->callback([&] {
        run = [&] {
            const Kind kind =
                options.kind.empty() ? KindOfName(options.file) : kKinds.at(options.kind);
            return DumpFile(kind, options.file, options.output);
        };
    });
}

void AddJoinCodes(CLI::App& program, Options& options, Run& run) {
    CLI::App* command =
        program.add_subcommand("join-codes", "Check sources of codes and join them into one file");
    command->add_option("FILE", options.sources, "Sources")->required();
    command->add_option("-o,--output", options.output, "The file of all codes")->required();
    command->callback([&] { run = [&] { return JoinCodes(options.sources, options.output); }; });
}

int RunProgram(int argc, char** argv) {
    CLI::App program("zorby-data: compile and dump the data files of the library", "zorby-data");
    program.set_version_flag("--version", "zorby-data " ZORBY_DATA_VERSION);
    program.require_subcommand(1);
    Options options;
    Run run;
    AddCompile(program, options, run);
    AddDump(program, options, run);
    AddJoinCodes(program, options, run);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? kStatusWell : kStatusFailed;
    }
    return run();
}

}  // namespace

int main(int argc, char** argv) {
    quillory::RemoveUnfinishedFilesOnSignals();
    try {
        return RunProgram(argc, argv);
    } catch (const quillory::ClosedPipe&) {
        return kStatusWell;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zorby-data: %s\n", error.what());
        return kStatusFailed;
    }
}
