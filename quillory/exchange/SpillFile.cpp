#include <quillory/exchange/SpillFile.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace quillory {
namespace {

[[noreturn]] void Fail(const char* what) {
    throw FileError(std::string("a temporary file ") + what + ": " + std::strerror(errno));
}

}  // namespace

SpillFile::SpillFile() : file_(std::tmpfile()) {
    if (!file_) Fail("can't be made");
}

void SpillFile::Write(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) {
        Fail("can't be written");
    }
}

void SpillFile::CopyTo(Output& output) {
    if (std::fflush(file_.get()) != 0) Fail("can't be written");
    if (std::fseek(file_.get(), 0, SEEK_SET) != 0) Fail("can't be read");
    std::array<char, 65536> block{};
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file_.get())) {
        output.Write({block.data(), size});
    }
    if (std::ferror(file_.get()) != 0) Fail("can't be read");
}

}  // namespace quillory
