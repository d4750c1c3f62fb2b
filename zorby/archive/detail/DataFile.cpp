#include <zorby/archive/Archive.h>
#include <zorby/archive/FileStream.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/archive/detail/DataFile.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>

#include <utility>

namespace zorby {
namespace {

// The code is the system's own number: a missing file, a folder and a forbidden one differ.
void ShowNotOpened(const std::string& path, int systemError) {
    const std::string text =
        "File \"" + path +
        "\"could not be opened.  Can't start program.  Code: " + std::to_string(systemError);
    CurrentMessagePort().ShowMessage(text, CGeneral::GetApplicationName(), MessageIcon::kError);
}

int Open(const std::string& path, FileStream& file) {
    try {
        file.Open(path, FileStream::kRead);
        return 1;
    } catch (const CArchiveException& failure) {
        ShowNotOpened(path, failure.GetSystemError());
        return 0;
    }
}

// No data file is as long; a device may have no end.
constexpr std::size_t kLongestFile = std::size_t{64} << 20;

std::string ReadWhole(FileStream& file) {
    constexpr std::size_t kPiece = std::size_t{64} << 10;
    std::string bytes;
    std::size_t read = kPiece;
    while (read == kPiece && bytes.size() < kLongestFile) {
        const std::size_t size = bytes.size();
        bytes.resize(size + kPiece);
        read = file.Read(&bytes[size], kPiece);
        bytes.resize(size + read);
    }
    return bytes;
}

// The bytes of a file, under its name. Numbers are read from memory, which is faster.
class BytesOfFile : public MemoryViewStream {
public:
    BytesOfFile(std::string_view bytes, std::string name)
        : MemoryViewStream(bytes), name_(std::move(name)) {}

    std::string GetName() const override { return name_; }

private:
    std::string name_;
};

}  // namespace

int LoadDataFile(const std::string& path, CObject& object) {
    FileStream file;
    if (!Open(path, file)) return 0;
    const std::string bytes = ReadWhole(file);
    BytesOfFile stream(bytes, file.GetName());
    CArchive archive(stream, CArchive::load);
    object.Serialize(archive);
    return 1;
}

}  // namespace zorby
