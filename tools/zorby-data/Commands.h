#pragma once

#include <string>
#include <vector>

namespace datatool {

enum Kind { kKindFormat, kKindHoldings, kKindWorkforms };
enum Status { kStatusWell = 0, kStatusFaults = 1, kStatusFailed = 2 };

// The kind of data file that goes by this name. Throws quillory::FileError for any other.
Kind KindOfName(const std::string& path);

// The first two tell faults on standard error. They throw quillory::FileError, and
// CArchiveException for a damaged data file.

// Compiles sources into a data file, which is written only if they have no faults.
Status CompileFiles(Kind kind, const std::vector<std::string>& sources, const std::string& output);
// Writes a data file as a source, or workforms as a source each into the folder `output`, which is
// made where there is none. A file that no source gives is refused. Faults that compiling
// would find in the source are told, and it is written all the same.
Status DumpFile(Kind kind, const std::string& path, const std::string& output);

// Checks sources of codes and joins them into the file that quillory reads. Throws
// quillory::FileError for the first fault.
Status JoinCodes(const std::vector<std::string>& sources, const std::string& output);

}  // namespace datatool
