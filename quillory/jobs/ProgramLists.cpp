#include <quillory/jobs/ProgramLists.h>
#include <quillory/jobs/Status.h>

namespace quillory {

TermsAndMeanings ExitStatuses() {
    return {
        {std::to_string(kStatusWell), "All is well"},
        {std::to_string(kStatusFindings),
         "The work is done, but something is amiss: damage, rejects, lost characters, findings, "
         "files that differ, nothing found"},
        {std::to_string(kStatusFailed), "Wrong usage, or a file that can't be read or written"},
    };
}

TermsAndMeanings EnvironmentVariables() {
    return {
        {"QUILLORY_HOME",
         "The folder of settings, the store, workforms of your own and unsaved changes; by default "
         "quillory in the XDG data folder"},
        {"XDG_DATA_HOME", "The XDG data folder; by default .local/share in the folder HOME"},
        {"QUILLORY_DATA",
         "The folder of the dictionary, the code lists and the standard workforms; by default that "
         "of the installation"},
        {"QUILLORY_SYNC",
         "With the value off, no program waits until what it has written is on the disk"},
        {"TMPDIR", "The folder of temporary files; by default /tmp"},
    };
}

}  // namespace quillory
