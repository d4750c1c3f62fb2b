#include <quillory/arguments/Program.h>
#include <quillory/cli/Commands.h>

int main(int argc, char** argv) {
    quillory::Arguments program("quillory", "quillory: MARC 21 records on the command line",
                                QUILLORY_VERSION);
    quillory::DeclareCommands(program);
    return quillory::RunProgram(program, argc, argv);
}
