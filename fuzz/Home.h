#pragma once

#include <quillory/jobs/Library.h>

#include <cstdlib>
#include <filesystem>
#include <fuzz/Carry.h>
#include <optional>
#include <string>
#include <string_view>

namespace quillory::fuzz {

// A folder of this run, which goes with it.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "fuzz_home.XXXXXX").string();
        Expect(mkdtemp(name.data()) != nullptr, "there is a place for files");
        path_ = name;
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string File(const char* name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

// Settings, dictionaries and workforms as a new user has them.
inline void PutAllInForce() {
    static const Folder home;
    setenv("QUILLORY_HOME", home.File("home").c_str(), 1);
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
}

// Calls `take` with each record of the bytes, in whatever form they are. Of damaged gzip data,
// these are the records that can be unpacked.
template <class Take>
void ForEachRecord(const unsigned char* data, std::size_t size, Take take) {
    const std::string_view text = TextOf(data, size);
    std::optional<Input> input;  // from a file only where it has to be, which takes longer
    if (text.starts_with("\x1F\x8B")) {
        input.emplace(FileOf(data, size)).GiveWhatUnpacks();
    } else {
        input.emplace(Input::kFromMemory, text, kInputName);
    }
    const Form* form = FormOfContent(*input);
    const auto reader = (form == nullptr ? Forms().front() : *form).makeReader(*input, true);
    Item item;
    while (reader->Next(item)) {
        if (item.kind == kItemRecord) take(item);
    }
}

}  // namespace quillory::fuzz
