#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/Stream.h>
#include <zorby/platform/FilePort.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zorby {

// Why a file can't be opened.
struct CFileException {
    std::string fileName;
    int systemError = 0;  // the value of errno; EWOULDBLOCK if another program has the file open
};

// A file in which a user's cards or labels wait until they are printed, opened through the FilePort
// in force. It begins with how many there are, in 4 bytes, little-endian; what comes after that is
// laid out by the host. As a stream it throws CArchiveException.
class ZORBY_EXPORT CQueueFile : public Stream {
public:
    CQueueFile();
    ~CQueueFile() override;

    // Opens this user's file, and creates it if it is missing; a file that was open before is
    // closed. Returns 1, or 0 with the reason in `failure`, which may be null.
    int Open(CFileException* failure);
    bool IsOpen() const;
    void Close();

    std::size_t Read(void* buffer, std::size_t size) override;
    void Write(const void* bytes, std::size_t size) override;
    void Flush() override {}
    std::uint64_t GetPosition() const override;
    void Seek(std::uint64_t position) override;
    std::string GetName() const override;

    std::uint64_t GetSize() const;
    // Cuts the file after so many bytes. The position stays.
    void SetSize(std::uint64_t size);
    // Returns when all that was written is on the device.
    void Sync();

    // The host may keep the name of the printer at the position of its choice. Without an archive,
    // GetDeviceName reads at the present position of the file, and SaveDeviceName does nothing.
    void SaveDeviceName(std::string_view name, CArchive* archive);
    std::string GetDeviceName(CArchive* archive);

protected:
    virtual std::string Path() const = 0;

    // Leave the position after the number. A file of fewer than 4 bytes is new: it gets the number
    // 0 in the place of what it has.
    int GetCount();
    void SetCount(int count);

    // Asks the user, and deletes the file only if the answer is yes. Whether that succeeds isn't
    // looked at; a file that is open stays.
    static void Delete(const std::string& path, std::string_view question);
    // Returns the path of a file of the present user in the data folder.
    static std::string PathOf(std::string_view name);

private:
    OpenFile& File() const;
    [[noreturn]] void Fail(CArchiveException::Cause cause) const;

    std::unique_ptr<OpenFile> file_;
    std::string path_;
    std::uint64_t position_ = 0;
};

}  // namespace zorby
