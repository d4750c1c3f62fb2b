#pragma once

#include <quillory/exchange/Output.h>

#include <cstdio>
#include <memory>
#include <string_view>

namespace quillory {

// Bytes that can't be written yet, because others come before them in the output: a file without a
// name keeps them, as long as the object lives. Throws FileError.
class SpillFile {
public:
    SpillFile();

    void Write(std::string_view bytes);
    void CopyTo(Output& output);

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace quillory
