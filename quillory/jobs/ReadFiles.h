#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/jobs/Reporter.h>
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
};

// Hands the items of every file to `take`, all but frames, until it returns false. Result:
// kStatusFindings if a file is empty. Throws FileError, before anything is read if one of the files
// can't be opened.
Status ReadFiles(const InputOptions& options, Reporter& reporter,
                 const std::function<bool(Item& item)>& take);

}  // namespace quillory
