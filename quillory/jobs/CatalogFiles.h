#pragma once

#include <quillory/jobs/NewRecords.h>
#include <quillory/jobs/WriteRecords.h>

#include <string>
#include <vector>

namespace quillory {

struct CatalogOptions {
    NewRecordOptions record;  // its workform is for the descriptions that name none
    std::vector<std::string> files;
    OutputOptions output;
    std::string memory = "64M";  // the most that is held of a file
};

// Makes the records that TOML files describe. A description from which no record can be made counts
// as damage, as in a file of records. Throws FileError and UsageError.
Status CatalogFiles(const CatalogOptions& options, Reporter& reporter);

}  // namespace quillory
