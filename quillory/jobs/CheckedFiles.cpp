#include <quillory/jobs/CheckedFiles.h>

#include <map>
#include <string_view>

namespace quillory {

std::uint64_t CheckedFiles::Note(const ResultFile& results, const std::string& name) {
    const File* last = next_ == 0 ? nullptr : &files_[next_ - 1];
    const bool isSame = last != nullptr && last->results == &results && last->name == name;
    if (isSame) return next_ - 1;
    if (next_ == files_.size()) files_.push_back({&results, name});
    return next_++;
}

void CheckedFiles::BeginAgain() {
    next_ = 0;
    std::map<std::string_view, const ResultFile*> only;  // null for a name in several results
    for (const File& file : files_) {
        const auto known = only.try_emplace(file.name, file.results).first;
        if (known->second != file.results) known->second = nullptr;
    }
    for (File& file : files_) file.isNameShared = only[file.name] == nullptr;
}

std::string CheckedFiles::Name(std::uint64_t file) const {
    const File& named = files_[file];
    return named.isNameShared ? named.name + " in " + named.results->Name() : named.name;
}

}  // namespace quillory
