#include <zorby/archive/Archive.h>
#include <zorby/archive/FileStream.h>
#include <zorby/archive/detail/DataFile.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>

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

}  // namespace

int LoadDataFile(const std::string& path, CObject& object) {
    FileStream file;
    if (!Open(path, file)) return 0;
    CArchive archive(file, CArchive::load);
    object.Serialize(archive);
    return 1;
}

}  // namespace zorby
