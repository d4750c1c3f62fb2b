#pragma once

#include <quillory/exchange/Output.h>

#include <cstdio>
#include <memory>
#include <string_view>

namespace quillory {

// Bytes that come before their place: a nameless file, gone with the object, holds them until they
// are copied to the output. Throws FileError.
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
