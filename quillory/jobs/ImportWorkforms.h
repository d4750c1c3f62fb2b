#pragma once

#include <quillory/jobs/Reporter.h>

#include <string>

namespace quillory {

struct ImportWorkformsOptions {
    std::string file;    // "-" for standard input
    bool force = false;  // replaces workforms of the user's of the same names
};

// Adds the workforms of an exported file to the store: all of them or none. Throws FileError.
Status ImportWorkforms(const ImportWorkformsOptions& options, const Reporter& reporter);

}  // namespace quillory
