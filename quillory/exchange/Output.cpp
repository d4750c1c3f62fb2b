#include <quillory/exchange/Output.h>
#include <quillory/exchange/Pieces.h>
#include <quillory/exchange/WorkAside.h>

#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <sys/uio.h>
#include <system_error>
#include <unistd.h>

namespace quillory {
namespace {

constexpr std::size_t kOutputBufferSize = std::size_t{1} << 18;

// Gives a new file the owner and the mode of the one that it is to replace, or else the mode of any
// new file. Bits that lend an owner's rights are not given for another owner.
void TakeOver(int descriptor, const std::filesystem::path& replaced) {
    constexpr mode_t kOfNewFiles = 0666;
    constexpr mode_t kLendingBits = S_ISUID | S_ISGID;
    constexpr mode_t kAllBits = 07777;
    struct stat status {};
    if (stat(replaced.c_str(), &status) == 0) {
        const bool isOwned = fchown(descriptor, status.st_uid, status.st_gid) == 0 ||
                             fchown(descriptor, static_cast<uid_t>(-1), status.st_gid) == 0;
        fchmod(descriptor, status.st_mode & kAllBits & ~(isOwned ? 0 : kLendingBits));
        return;
    }
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor, kOfNewFiles & ~mask);
}

// Whether nobody may write into a file, or this program may not: it could be replaced all the same.
bool IsProtected(const std::filesystem::path& path) {
    constexpr mode_t kWritable = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return false;
    return (status.st_mode & kWritable) == 0 ||
           faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0;
}

// The system only reads the bytes.
iovec PartOf(std::string_view bytes) {
    return {const_cast<char*>(bytes.data()), bytes.size()};
}

// What is left after the first `written` bytes.
std::span<iovec> PartsAfter(std::span<iovec> parts, std::size_t written) {
    while (!parts.empty() && parts.front().iov_len <= written) {
        written -= parts.front().iov_len;
        parts = parts.subspan(1);
    }
    if (written > 0) {
        parts.front().iov_base = static_cast<char*>(parts.front().iov_base) + written;
        parts.front().iov_len -= written;
    }
    return parts;
}

// A name that no file can have is found out before the work is done.
bool IsTooLong(const std::filesystem::path& folder, const std::filesystem::path& name) {
    const long most = pathconf(folder.c_str(), _PC_NAME_MAX);
    return most > 0 && name.native().size() > static_cast<std::size_t>(most);
}

}  // namespace

// Packs what is written; much of it into a file, in a thread of its own.
class Output::Packer {
public:
    explicit Packer(Output& output) : output_(output), packed_(kOutputBufferSize) {
        constexpr int kGzip = 15 + 16;
        constexpr int kMemoryLevel = 8;
        if (deflateInit2(&stream_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzip, kMemoryLevel,
                         Z_DEFAULT_STRATEGY) != Z_OK) {
            throw FileError(output.name_ + ": no memory");
        }
    }
    ~Packer() {
        aside_.reset();
        deflateEnd(&stream_);
    }
    Packer(const Packer&) = delete;
    Packer& operator=(const Packer&) = delete;

    void Pack(std::string_view bytes) {
        constexpr std::size_t kMuch = std::size_t{1} << 20;
        if (!aside_ && size_ < kMuch && size_ + bytes.size() >= kMuch && output_.file_) GoAside();
        size_ += bytes.size();
        if (aside_) {
            aside_->Do(bytes);
        } else {
            Deflate(bytes, Z_NO_FLUSH);
        }
    }
    void Finish() {
        if (aside_) aside_->Finish();
        Deflate({}, Z_FINISH);
    }

private:
    void GoAside() {
        try {
            aside_.emplace([this](std::string_view bytes) { Deflate(bytes, Z_NO_FLUSH); });
        } catch (const std::system_error&) {
            return;  // no thread to spare
        }
    }

    void Deflate(std::string_view bytes, int flush) {
        stream_.next_in = reinterpret_cast<const Bytef*>(bytes.data());
        stream_.avail_in = static_cast<uInt>(bytes.size());
        do {
            stream_.next_out = reinterpret_cast<Bytef*>(packed_.data());
            stream_.avail_out = static_cast<uInt>(packed_.size());
            deflate(&stream_, flush);
            output_.WriteRaw({packed_.data(), packed_.size() - stream_.avail_out});
        } while (stream_.avail_out == 0);
    }

    Output& output_;
    std::vector<char> packed_;
    z_stream stream_{};
    std::size_t size_ = 0;  // of all that was written
    std::optional<WorkAside> aside_;
};

Output::Output(const std::string& path, OutputRole role, bool replacesProtected)
    : name_(path), target_(OutputTargetOf(path)), isPacked_(path.ends_with(".gz")) {
    const bool isStandard = target_.descriptor == STDOUT_FILENO;
    if (isStandard) name_ = "standard output";
    endsQuietly_ = isStandard && role == OutputRole::kMain;
    if (target_.descriptor >= 0) {
        descriptor_ = fcntl(target_.descriptor, F_DUPFD_CLOEXEC, 0);
    } else if (target_.isFile) {
        Make(replacesProtected);
    } else {
        descriptor_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    }
    Begin();
}

Output::Output(ToMemory, std::string& memory) : memory_(&memory) {
    buffer_.resize(kOutputBufferSize);
}

Output::Output(ToMemory, Pieces& pieces) : pieces_(&pieces) {}

Output::~Output() {
    packer_.reset();
    if (descriptor_ >= 0) close(descriptor_);
}

void Output::Fail(const std::string& what, int reason) const {
    throw FileError(name_ + ": " + what + std::strerror(reason));
}

void Output::Make(bool replacesProtected) {
    if (!replacesProtected && IsProtected(target_.path)) {
        throw FileError(name_ + ": is write-protected, and not replaced");
    }
    std::filesystem::path folder = target_.path.parent_path();
    if (folder.empty()) folder = ".";
    if (IsTooLong(folder, target_.path.filename())) Fail("", ENAMETOOLONG);
    try {
        file_ = std::make_unique<UnfinishedFile>(folder);
    } catch (const std::system_error& error) {
        Fail("", error.code().value());
    }
    descriptor_ = file_->Open();
    if (descriptor_ >= 0) TakeOver(descriptor_, target_.path);
}

void Output::Begin() {
    if (descriptor_ < 0) Fail("", errno);
    buffer_.resize(kOutputBufferSize);
    if (isPacked_) packer_ = std::make_unique<Packer>(*this);
}

void Output::Close() {
    Flush();
    if (packer_) packer_->Finish();
    packer_.reset();
    if (isComplete_) Sync();
    const int closed = close(descriptor_);
    descriptor_ = -1;
    std::vector<char>().swap(buffer_);  // its memory too: outputs may be many
    if (closed != 0) Fail("can't be written: ", errno);
}

// Only what a file system is able to do is asked of it.
void Output::Sync() const {
    if (!file_ || !SyncsFiles() || fsync(descriptor_) == 0) return;
    if (errno != EINVAL && errno != ENOTSUP && errno != EROFS) Fail("can't be written: ", errno);
}

void Output::Rest() {
    if (!file_) {
        Flush();
    } else if (descriptor_ >= 0) {
        Close();
    }
}

void Output::WriteRaw(std::string_view bytes) {
    if (memory_ != nullptr) {
        memory_->append(bytes);
    } else if (!bytes.empty()) {
        iovec part = PartOf(bytes);
        WriteParts({&part, 1});
    }
}

// As many at a time as the system takes. The parts are used up.
void Output::WriteParts(std::span<iovec> parts) {
    while (!parts.empty()) {
        const std::size_t count = std::min<std::size_t>(parts.size(), IOV_MAX);
        const ssize_t written = writev(descriptor_, parts.data(), static_cast<int>(count));
        if (written >= 0) {
            parts = PartsAfter(parts, static_cast<std::size_t>(written));
        } else if (errno == EPIPE && endsQuietly_) {
            throw ClosedPipe();
        } else if (errno != EINTR) {
            Fail("can't be written: ", errno);
        }
    }
}

void Output::WriteThrough(std::string_view bytes) {
    if (packer_) {
        packer_->Pack(bytes);
    } else {
        WriteRaw(bytes);
    }
}

// Much goes to the system from where it stands.
void Output::Write(const Pieces& pieces) {
    std::size_t size = 0;
    std::vector<iovec> parts;
    pieces.ForEach([&](std::string_view bytes) {
        size += bytes.size();
        parts.push_back(PartOf(bytes));
    });
    if (packer_ || descriptor_ < 0 || size < buffer_.size() / 4) {
        pieces.ForEach([this](std::string_view bytes) { Write(bytes); });
    } else {
        Flush();
        WriteParts(parts);
    }
}

void Output::WriteLarge(std::string_view bytes) {
    if (pieces_ != nullptr) {
        pieces_->Add(bytes);
        return;
    }
    if (buffer_.empty()) {
        descriptor_ = file_->Open();
        Begin();
    }
    Flush();
    if (bytes.size() < buffer_.size() / 4) {
        Write(bytes);
    } else {
        WriteThrough(bytes);
    }
}

void Output::Flush() {
    const std::size_t used = used_;
    used_ = 0;
    WriteThrough({buffer_.data(), used});
}

void Output::Complete() {
    if (isComplete_) return;
    isComplete_ = true;
    if (memory_ != nullptr || pieces_ != nullptr) {
        Flush();
        return;
    }
    if (descriptor_ < 0) {  // it rests
        descriptor_ = file_->Open();
        isPacked_ = false;
        Begin();
    }
    Close();
}

void Output::Finish() {
    Complete();
    if (!file_) return;
    try {
        file_->TakeName(target_.path);
    } catch (const std::system_error& error) {
        Fail("can't take its name: ", error.code().value());
    }
    file_.reset();
}

void WriteOutput(const std::string& path, std::string_view bytes) {
    Output output(path);
    output.Write(bytes);
    output.Finish();
}

}  // namespace quillory
