#include <quillory/exchange/Output.h>

#define ZLIB_CONST
#include <zlib.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace quillory {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{1} << 18;

// The name of an unfinished file, where a signal handler can reach it. Names are many where one
// work writes many files; none is ever taken from the list, a free one is used again.
struct Unfinished {
    std::atomic<char*> name;
    Unfinished* next;
};
std::atomic<Unfinished*> unfinished{};

Unfinished& Remember(const std::string& path) {
    char* copy = strdup(path.c_str());
    for (Unfinished* slot = unfinished.load(); slot != nullptr; slot = slot->next) {
        char* none = nullptr;
        if (slot->name.compare_exchange_strong(none, copy)) return *slot;
    }
    auto* slot = new Unfinished{copy, unfinished.load()};
    while (!unfinished.compare_exchange_weak(slot->next, slot)) {
    }
    return *slot;
}

void Forget(Unfinished& slot) {
    std::free(slot.name.exchange(nullptr));
}

extern "C" void EndBySignal(int signal) {
    for (Unfinished* slot = unfinished.load(); slot != nullptr; slot = slot->next) {
        const char* name = slot->name.load();
        if (name != nullptr) unlink(name);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

bool IsPlainOrAbsent(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return !fs::exists(status) || fs::is_regular_file(status);
}

// The mode of the file that is replaced, or what the process gives to new files.
mode_t ModeFor(const fs::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) return status.st_mode & 07777;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

class Output::Packer {
public:
    explicit Packer(Output& output) : output_(output), packed_(kBufferSize) {
        constexpr int kGzip = 15 + 16;
        constexpr int kMemoryLevel = 8;
        if (deflateInit2(&stream_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzip, kMemoryLevel,
                         Z_DEFAULT_STRATEGY) != Z_OK) {
            throw FileError(output.name_ + ": no memory");
        }
    }
    ~Packer() { deflateEnd(&stream_); }
    Packer(const Packer&) = delete;
    Packer& operator=(const Packer&) = delete;

    void Pack(std::string_view bytes, int flush) {
        stream_.next_in = reinterpret_cast<const Bytef*>(bytes.data());
        stream_.avail_in = static_cast<uInt>(bytes.size());
        do {
            stream_.next_out = reinterpret_cast<Bytef*>(packed_.data());
            stream_.avail_out = static_cast<uInt>(packed_.size());
            deflate(&stream_, flush);
            output_.WriteRaw({packed_.data(), packed_.size() - stream_.avail_out});
        } while (stream_.avail_out == 0);
    }

private:
    Output& output_;
    std::vector<char> packed_;
    z_stream stream_{};
};

// Where the name of an output's temporary file is kept.
struct Output::Temporary {
    explicit Temporary(const std::string& path) : slot(Remember(path)) {}
    ~Temporary() { Forget(slot); }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    Unfinished& slot;
};

Output::Output(const std::string& path)
    : name_(path == "-" ? "standard output" : path), isPacked_(path.ends_with(".gz")) {
    if (path == "-") {
        descriptor_ = dup(STDOUT_FILENO);
    } else if (IsPlainOrAbsent(path)) {
        std::error_code error;
        const fs::path real = fs::weakly_canonical(path, error);
        finalPath_ = error ? path : real.string();
        temporaryPath_ = finalPath_ + ".XXXXXX";
        descriptor_ = mkostemp(temporaryPath_.data(), O_CLOEXEC);
        if (descriptor_ >= 0) {
            temporary_ = std::make_unique<Temporary>(temporaryPath_);
            fchmod(descriptor_, ModeFor(finalPath_));
        }
    } else {
        descriptor_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    }
    Begin();
}

Output::Output(ToMemory, std::string& memory) : memory_(&memory) {
    buffer_.resize(kBufferSize);
}

Output::~Output() {
    if (descriptor_ >= 0) close(descriptor_);
    if (temporary_) unlink(temporaryPath_.c_str());
}

void Output::Begin() {
    if (descriptor_ < 0) throw FileError(name_ + ": " + std::strerror(errno));
    buffer_.resize(kBufferSize);
    if (isPacked_) packer_ = std::make_unique<Packer>(*this);
}

void Output::Close() {
    Flush();
    if (packer_) packer_->Pack({}, Z_FINISH);
    packer_.reset();
    const int closed = close(descriptor_);
    descriptor_ = -1;
    buffer_ = {};
    if (closed != 0) throw FileError(name_ + ": can't be written: " + std::strerror(errno));
}

void Output::Rest() {
    if (!temporary_) {
        Flush();
    } else if (descriptor_ >= 0) {
        Close();
    }
}

void Output::WriteRaw(std::string_view bytes) {
    if (memory_ != nullptr) {
        memory_->append(bytes);
        return;
    }
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EPIPE) {
            throw ClosedPipe();
        } else if (errno != EINTR) {
            throw FileError(name_ + ": can't be written: " + std::strerror(errno));
        }
    }
}

void Output::WriteThrough(std::string_view bytes) {
    if (packer_) {
        packer_->Pack(bytes, Z_NO_FLUSH);
    } else {
        WriteRaw(bytes);
    }
}

void Output::WriteLarge(std::string_view bytes) {
    if (buffer_.empty()) {
        descriptor_ = open(temporaryPath_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
        Begin();
    }
    Flush();
    if (bytes.size() < buffer_.size()) {
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

void Output::Finish() {
    if (memory_ != nullptr) {
        Flush();
        return;
    }
    if (descriptor_ >= 0) Close();
    if (!temporary_) return;
    if (rename(temporaryPath_.c_str(), finalPath_.c_str()) != 0) {
        throw FileError(name_ + ": can't take its name: " + std::strerror(errno));
    }
    temporary_.reset();
}

void WriteOutput(const std::string& path, std::string_view bytes) {
    Output output(path);
    output.Write(bytes);
    output.Finish();
}

void RemoveUnfinishedFilesOnSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, EndBySignal);
}

}  // namespace quillory
