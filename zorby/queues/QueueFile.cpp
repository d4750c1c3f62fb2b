#include <zorby/platform/QuestionPort.h>
#include <zorby/queues/QueueFile.h>
#include <zorby/settings/Profile.h>

#include <array>
#include <cerrno>

namespace zorby {

CQueueFile::CQueueFile() = default;

CQueueFile::~CQueueFile() = default;

int CQueueFile::Open(CFileException* failure) {
    Close();
    path_ = Path();
    position_ = 0;
    file_ = CurrentFilePort().Open(path_);
    if (!file_ && failure != nullptr) *failure = {path_, errno};
    return file_ ? 1 : 0;
}

std::size_t CQueueFile::Read(void* buffer, std::size_t size) {
    const std::int64_t count = File().ReadAt(position_, buffer, size);
    if (count < 0) Fail(CArchiveException::kReadFailed);
    position_ += static_cast<std::uint64_t>(count);
    return static_cast<std::size_t>(count);
}

void CQueueFile::Write(const void* bytes, std::size_t size) {
    if (File().WriteAt(position_, bytes, size) == 0) Fail(CArchiveException::kWriteFailed);
    position_ += size;
}

std::uint64_t CQueueFile::GetSize() const {
    const std::int64_t size = File().Size();
    if (size < 0) Fail(CArchiveException::kReadFailed);
    return static_cast<std::uint64_t>(size);
}

void CQueueFile::SetSize(std::uint64_t size) {
    if (File().SetSize(size) == 0) Fail(CArchiveException::kWriteFailed);
}

void CQueueFile::Sync() {
    if (File().Sync() == 0) Fail(CArchiveException::kWriteFailed);
}

void CQueueFile::SaveDeviceName(std::string_view name, CArchive* archive) {
    if (archive != nullptr) *archive << name;
}

std::string CQueueFile::GetDeviceName(CArchive* archive) {
    std::string name;
    if (archive != nullptr) {
        *archive >> name;
    } else {
        CArchive(*this, CArchive::load) >> name;
    }
    return name;
}

int CQueueFile::GetCount() {
    std::array<unsigned char, 4> bytes{};
    Seek(0);
    if (Read(bytes.data(), bytes.size()) < bytes.size()) {
        SetCount(0);
        return 0;
    }
    std::uint32_t count = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) count = count << 8U | bytes[i];
    return static_cast<int>(count);
}

void CQueueFile::SetCount(int count) {
    Seek(0);
    CArchive(*this, CArchive::store) << static_cast<std::int32_t>(count);
}

void CQueueFile::Delete(const std::string& path, std::string_view question) {
    if (CurrentQuestionPort().AskYesNo(question)) CurrentFilePort().Delete(path);
}

std::string CQueueFile::PathOf(std::string_view name) {
    std::string path;
    GetDataPath(path);
    return path.append(name).append(std::to_string(GetThisUserID())).append(".prn");
}

OpenFile& CQueueFile::File() const {
    if (file_) return *file_;
    errno = 0;
    Fail(CArchiveException::kClosed);
}

void CQueueFile::Fail(CArchiveException::Cause cause) const {
    throw CArchiveException(cause, path_, position_, errno);
}

bool CQueueFile::IsOpen() const {
    return file_ != nullptr;
}

void CQueueFile::Close() {
    file_.reset();
}

std::uint64_t CQueueFile::GetPosition() const {
    return position_;
}

void CQueueFile::Seek(std::uint64_t position) {
    position_ = position;
}

std::string CQueueFile::GetName() const {
    return path_;
}

}  // namespace zorby
