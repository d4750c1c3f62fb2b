#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

struct ShowCommand {
    InputOptions input;
    ReporterOptions messages;
    ScreenChoice screen;
    std::uint64_t record = 0;  // 0 for all
};

Status RunShow(const ShowCommand& options) {
    LoadNames(options.screen);
    TerminalPort terminal;
    Reporter reporter(terminal, options.messages);
    Output output("-");
    ShowOptions show = ShowOptionsOf(options.screen);
    show.damaged = options.input.where.AsksForAll();
    RecordShower shower(show, options.input.charset, output, reporter);
    try {
        bool isMissing = options.record != 0;
        const Status read = ReadFiles(options.input, reporter, [&](Item& item) {
            if (options.record != 0 && item.number > options.record) return false;
            if (options.record != 0 && item.number < options.record) return true;
            isMissing = false;
            shower.Take(item);
            return true;
        });
        shower.Finish();
        output.Finish();
        if (isMissing) {
            const bool asksForAll = options.input.where.AsksForAll();
            reporter.Say(std::string(asksForAll ? "no record" : "no record that matches") +
                         " has the number " + std::to_string(options.record));
        }
        return std::max({read, shower.Result(), isMissing ? kStatusFindings : kStatusWell});
    } catch (const ClosedPipe&) {
        return shower.Result();
    }
}

}  // namespace

void DeclareShow(Arguments& command) {
    ShowCommand& options = command.Runs(RunShow);
    DeclareInput(command, options.input, options.messages);
    DeclareScreen(command, options.screen);
    command.Option("--record", options.record, "Only the record of this number, from 1");
}

}  // namespace quillory
