#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/Progress.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace quillory {
namespace {

const Form& FormOf(const InputOptions& options, Input& input) {
    const Form* form = options.form;
    if (form == nullptr) form = FormOfContent(input);
    if (form == nullptr) form = FormOfFileName(input.Name());
    return form != nullptr ? *form : Forms().front();
}

// What is no damage: filler between records is told only where everything is.
void Tell(const Item& item, Reporter& reporter) {
    for (const FaultCode note : item.notes) reporter.Note(note);
    if (item.kind == kItemFrame && item.fault && reporter.SaysAll()) reporter.SayFault(item);
}

// What is missing is said before the work begins. Nothing is opened: files may be many, and a named
// pipe can be opened only once.
void CheckCanBeOpened(const std::string& file) {
    if (file == "-" || faccessat(AT_FDCWD, file.c_str(), R_OK, AT_EACCESS) == 0) return;
    throw FileError(file + ": " + std::strerror(errno));
}

}  // namespace

Status ReadAllItems(const InputOptions& options, Reporter& reporter, const ItemTaker& take,
                    const FileBeginner& beginFile) {
    const std::vector<std::string> standardInput{"-"};
    const auto& files = options.files.empty() ? standardInput : options.files;
    for (const std::string& file : files) CheckCanBeOpened(file);

    Status status = kStatusWell;
    Progress progress(reporter);
    bool goOn = true;
    for (const std::string& file : files) {
        Input input(file);
        reporter.BeginFile(input.Name());
        input.GiveWhatUnpacks();
        if (input.Peek(1).empty() && !input.WhatIsDamaged()) {
            reporter.Say(input.Name() + ": " + FaultReason({FaultCode::kEmptyFile}));
            status = kStatusFindings;
            continue;
        }
        const Form& form = FormOf(options, input);
        if (beginFile) beginFile(form);
        const auto reader = form.makeReader(input, options.lenient);
        Item item;
        while (goOn && reader->Next(item)) {
            Tell(item, reporter);
            goOn = take(item);
            progress.Step(input.BytesRead(), input.FileSize());
        }
        if (input.WhatIsDamaged()) {
            reporter.Say(input.Name() + ": " + FaultReason(*input.WhatIsDamaged()) +
                         "; what could be unpacked has been read");
            status = kStatusFindings;
        }
        reporter.EndFile();
    }
    return status;
}

Status ReadFiles(const InputOptions& options, Reporter& reporter, const ItemTaker& take) {
    RecordFilter filter(options.where, options.charset);
    return ReadAllItems(options, reporter, [&](Item& item) {
        if (item.kind == kItemFrame) return true;
        if (item.kind == kItemRecord && !filter.Takes(item.record)) return true;
        return take(item);
    });
}

}  // namespace quillory
