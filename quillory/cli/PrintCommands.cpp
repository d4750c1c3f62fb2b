#include <quillory/cards/LabelStock.h>
#include <quillory/cli/PrintCommands.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/cli/TerminalQuestions.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/PanelText.h>
#include <zorby/platform/PortInForce.h>

#include <functional>

namespace quillory {
namespace {

constexpr const char* kPdfEnding = ".pdf";

bool IsPdf(const PrintDestination& destination) {
    if (destination.isPdf) return *destination.isPdf;
    return destination.pages.pdf.ends_with(kPdfEnding);
}

// Runs `job` for the target that was chosen: pages, or text on a screen.
Status PrintTo(const PrintDestination& destination,
               const std::function<Status(PrintTarget& target)>& job) {
    PageOptions pages = destination.pages;
    for (const std::string& path : {pages.pdf, pages.preview}) {
        CheckNotAnInput(pages.inputs, path);
    }
    const bool isPdf = IsPdf(destination);
    const bool isPreviewAlone = !destination.isPdf && pages.pdf.empty() && !pages.preview.empty();
    if (isPdf || isPreviewAlone) {
        if (isPdf && pages.pdf.empty()) pages.pdf = "-";
        PageTarget target(pages);
        return job(target);
    }
    if (!pages.preview.empty()) throw UsageError("--preview goes with PDF, not with text");
    Output output(pages.pdf.empty() ? "-" : pages.pdf);
    TextTarget target(output);
    const Status status = job(target);
    output.Finish();
    return status;
}

struct QueueCommand {
    PrintQueue::Kind kind = PrintQueue::kCards;
    bool isSure = false;
};

Status RunList(const QueueCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    Output output("-");
    std::uint64_t panels = 0;
    const auto take = [&](const QueuedItem& queued) {
        output.Write(ToText(queued, NounOf(command.kind)));
        panels += static_cast<std::uint64_t>(queued.panels);
    };
    const Status status = ListQueue(command.kind, take, reporter);
    output.Finish();
    reporter.Say(Counted(panels, NounOf(command.kind)) + " in the queue");
    return status;
}

std::vector<std::string> LabelStockNames() {
    std::vector<std::string> names;
    for (const LabelStock& stock : LabelStocks()) names.emplace_back(stock.name);
    return names;
}

Status RunClear(const QueueCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    TerminalQuestions person;
    zorby::ScriptedAnswers sure;
    sure.answers = {true};
    const zorby::QuestionsInForce inForce(command.isSure ? static_cast<zorby::QuestionPort&>(sure)
                                                         : person);
    return ClearQueue(command.kind, reporter);
}

}  // namespace

void DeclareRecords(Arguments& command, PrintCommand& options) {
    PrintSource& source = options.records.source;
    DeclareInput(command, source.input, options.messages);
    command.Flag("--stored", source.isStored, "Records of the store, not of files");
    command.Option("--id", source.ids, "These records of the store, by their IDs").Shown("ID");
    command
        .Option("--call-number", options.records.choice.callNumbers,
                "Where call numbers are, such as 090ab,082a; by default first in the copies")
        .Shown("PLACES");
}

void DeclareDestination(Arguments& command, PrintDestination& destination) {
    command
        .Option("-o,--output", destination.pages.pdf, "Where they go; standard output if not given")
        .File();
    command.Choice(
        "--format", destination.isPdf, {{"text", false}, {"pdf", true}},
        "text, to look at, or pdf; by default pdf if the name of the output ends in .pdf");
    command
        .Option("--preview", destination.pages.preview,
                "A picture of the first page, as PNG; of every page, if {} stands for its number "
                "in the name")
        .Shown("NAME")
        .File();
    command.Flag("--edges", destination.pages.withEdges,
                 "Draw the edges of cards and labels, for paper that has to be cut");
    command
        .Option("--skip", destination.pages.skip, "Places of the first sheet that are used already")
        .Range(0, 999);
}

void DeclareSheets(Arguments& command, PrintChoice& choice) {
    if (choice.kind == PrintQueue::kLabels) {
        command
            .Option("--type", choice.stock,
                    "Type of the sheets of labels, such as S1 or SP1; by default that of the "
                    "settings")
            .Shown("NAME")
            .Offers(LabelStockNames());
        return;
    }
    command.Choice("--paper", choice.paper, {{"letter", kPaperLetter}, {"a4", kPaperA4}},
                   "Paper of the sheets; letter if not given");
    command
        .Option("--per-sheet", choice.cardsPerSheet,
                "Cards on a sheet, 1 to 4; by default as many as the settings say")
        .Range(1, 4);
}

Status RunPrint(const PrintCommand& command) {
    const PrintRecordsOptions& records = command.records;
    PrintDestination destination = command.destination;
    destination.pages.inputs = records.source.input.files;
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return PrintTo(destination,
                   [&](PrintTarget& target) { return PrintRecords(records, target, reporter); });
}

Status RunQueue(const PrintCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return QueueRecords(command.records, reporter);
}

Status RunPrintQueue(const PrintCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return PrintTo(command.destination, [&](PrintTarget& target) {
        return PrintQueued(command.records.choice, target, reporter);
    });
}

void DeclareQueueList(Arguments& command, PrintQueue::Kind kind) {
    QueueCommand& options = command.Runs(RunList);
    options.kind = kind;
}

void DeclareQueuePrint(Arguments& command, PrintQueue::Kind kind) {
    PrintCommand& options = command.Runs(RunPrintQueue);
    options.records.choice.kind = kind;
    DeclareDestination(command, options.destination);
    DeclareSheets(command, options.records.choice);
    DeclareMessages(command, options.messages);
}

void DeclareQueueClear(Arguments& command, PrintQueue::Kind kind) {
    QueueCommand& options = command.Runs(RunClear);
    options.kind = kind;
    command.Flag("-y,--yes", options.isSure, "Do not ask first");
}

}  // namespace quillory
