#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace quillory {

// A new file that takes its name when it is complete. Until then it is ".quillory-XXXXXX-1" in the
// same folder, and is removed when the object goes or a signal ends the program. What a killed
// program leaves is removed by the next one that writes into the folder: a lock on
// ".quillory-XXXXXX" tells the files of the living from those of the dead.
class UnfinishedFile {
public:
    // Throws std::system_error.
    explicit UnfinishedFile(const std::filesystem::path& folder);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    // Opens it once more, for writing at its end. Result: a descriptor, or -1 with errno set.
    int Open() const;
    // Replaces a file that has the name. Throws std::system_error.
    void TakeName(const std::filesystem::path& path);

private:
    class Folder;
    class Name;

    static std::shared_ptr<Folder> Enter(const std::filesystem::path& folder);

    std::shared_ptr<Folder> folder_;
    std::unique_ptr<Name> name_;  // null once it has its own
};

// Whether what is written reaches the disk before a file takes its name: always, unless the
// variable QUILLORY_SYNC is "off".
bool SyncsFiles();

// Removes the unfinished files when a signal ends the program. A limit on the size of files is then
// an error of writing, and a hangup that the caller ignores stays ignored.
void RemoveUnfinishedFilesOnSignals();

}  // namespace quillory
