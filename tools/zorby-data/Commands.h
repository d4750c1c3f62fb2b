#pragma once

#include <optional>
#include <string>
#include <vector>

namespace datatool {

enum Kind { kKindFormat, kKindHoldings, kKindWorkforms };
enum Status { kStatusWell = 0, kStatusFaults = 1, kStatusFailed = 2 };

struct CompileOptions {
    Kind kind = kKindFormat;
    std::vector<std::string> sources;  // in the order of the data file
    std::string output;
};

struct DumpOptions {
    std::string file;
    std::optional<Kind> kind;  // by default that of the file's name
    std::string output = "-";
};

struct JoinOptions {
    std::vector<std::string> sources;
    std::string output;
};

// The first two tell faults on standard error. They throw quillory::FileError, and
// CArchiveException for a damaged data file.

// Compiles sources into a data file, which is written only if they have no faults.
Status CompileFiles(const CompileOptions& options);
// Writes a data file as a source, or workforms as a source each into the folder `output`, which is
// made where there is none. A file that no source gives is refused. Faults that compiling
// would find in the source are reported, and it is written all the same.
Status DumpFile(const DumpOptions& options);

// Checks sources of codes and joins them into the file that quillory reads. Throws
// quillory::FileError for the first fault.
Status JoinCodes(const JoinOptions& options);

}  // namespace datatool
