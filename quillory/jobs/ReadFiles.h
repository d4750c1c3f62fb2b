#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/jobs/ItemWorker.h>
#include <quillory/jobs/WhereOptions.h>
#include <quillory/text/Charset.h>

#include <functional>
#include <string>
#include <vector>

namespace quillory {

// The files that a job reads, and how.
struct InputOptions {
    std::vector<std::string> files;  // none, or "-", for standard input
    const Form* form = nullptr;      // null: by content, then by name
    Charset charset = kCharsetAuto;
    bool lenient = false;
    WhereOptions where = {};
    CrewOptions crew = {};
    // Told of each record that `where` does not ask for; may be empty. Several threads may tell at
    // a time.
    std::function<void(const Item& item)> passOver = {};
};

// Hands the items of every file to `take`, until it returns false: all except frames, and records
// that are not asked for. Result: kStatusFindings if a file is empty. Throws FileError,
// before anything is read if one of the files can't be opened, and UsageError if the options don't
// say clearly which records are asked for.
Status ReadFiles(const InputOptions& options, Reporter& reporter, const ItemTaker& take);

// The same, by workers where the options and the job allow it.
Status ReadFiles(const InputOptions& options, Reporter& reporter, const ItemJob& job);

// The same with frames, and with every record, whichever are asked for. `beginFile`, if there is
// one, is told the form of each file that is not empty, in the order of all that is done.
using FileBeginner = std::function<void(const Form& form)>;
Status ReadAllItems(const InputOptions& options, Reporter& reporter, const ItemTaker& take,
                    const FileBeginner& beginFile = {});
Status ReadAllItems(const InputOptions& options, Reporter& reporter, const ItemJob& job,
                    const FileBeginner& beginFile);

}  // namespace quillory
