#include <quillory/arguments/ManualCommands.h>
#include <quillory/arguments/Program.h>

#include <tools/zorby-data/Commands.h>

namespace {

using namespace datatool;
using quillory::Arguments;

const quillory::Choices<Kind> kKinds{
    {"format", kKindFormat}, {"holdings", kKindHoldings}, {"workforms", kKindWorkforms}};

void DeclareCompile(Arguments& command) {
    CompileOptions& options = command.Runs(CompileFiles);
    command.Choice("KIND", options.kind, kKinds, "What the sources hold").Required();
    command.Positional("FILE", options.sources, "Sources, in the order of the data file")
        .Required()
        .File();
    command.Option("-o,--output", options.output, "The data file").Required().File();
}

void DeclareDump(Arguments& command) {
    DumpOptions& options = command.Runs(DumpFile);
    command.Positional("FILE", options.file, "The data file").Required().File();
    command.Choice("--kind", options.kind, kKinds,
                   "What the file holds; by default that of its name");
    command
        .Option("-o,--output", options.output,
                "The source, standard output if not given; for workforms the folder of their "
                "sources")
        .File();
}

void DeclareJoinCodes(Arguments& command) {
    JoinOptions& options = command.Runs(JoinCodes);
    command.Positional("FILE", options.sources, "Sources").Required().File();
    command.Option("-o,--output", options.output, "The file of all codes").Required().File();
}

}  // namespace

int main(int argc, char** argv) {
    Arguments program("zorby-data", "zorby-data: compile and dump the data files of the library",
                      ZORBY_DATA_VERSION);
    program.Command("compile", "Compile sources into a data file", DeclareCompile);
    program.Command("dump", "Write a data file as a source", DeclareDump);
    program.Command("join-codes", "Check sources of codes and join them into one file",
                    DeclareJoinCodes);
    quillory::DeclareManualCommands(program);
    return quillory::RunProgram(program, argc, argv);
}
