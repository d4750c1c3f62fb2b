#pragma once

#include <quillory/cli/Reporter.h>
#include <quillory/exchange/Form.h>
#include <quillory/exchange/Recoder.h>

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace quillory {

// The files that a command reads, and how.
struct InputOptions {
    std::vector<std::string> files;  // "-" alone for standard input
    Form form = kFormUnknown;        // told by content, then by name
    Charset charset = kCharsetAuto;
    bool lenient = false;
    bool quiet = false;
    bool verbose = false;
};

void AddInputOptions(CLI::App& command, InputOptions& options);
// An option that takes the name of a form or a character set.
void AddFormOption(CLI::App& command, const std::string& name, Form& form, const std::string& text);
void AddCharsetOption(CLI::App& command, const std::string& name, Charset& charset,
                      const std::string& text);

// Hands every item of every file but frames to `take`, which says whether to go on, with progress
// on the terminal. Result: kStatusWell, or kStatusFindings for an empty file. Throws FileError,
// before anything is read if one of the files can't be opened.
Status ReadFiles(const InputOptions& options, Reporter& reporter,
                 const std::function<bool(Item& item)>& take);

}  // namespace quillory
