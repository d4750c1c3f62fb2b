#include <quillory/exchange/Inflater.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/ReadAhead.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20;

// Whether a read gives something, the end or an error, without waiting.
bool HasBytesNow(int descriptor) {
    struct pollfd asked {
        descriptor, POLLIN, 0
    };
    return poll(&asked, 1, 0) != 0;
}

std::size_t ReadFrom(int descriptor, const std::string& name, char* target, std::size_t size) {
    for (;;) {
        const ssize_t got = read(descriptor, target, size);
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno != EINTR) throw FileError(name + ": " + std::strerror(errno));
    }
}

}  // namespace

// Unpacks a file as it is asked for; one that is large, in a thread of its own.
class Input::Unpacker {
public:
    Unpacker(Input& input, std::string_view head)
        : input_(input),
          bytesRead_(input.bytesRead_),
          inflater_([this](char* target, std::size_t size) { return Read(target, size); },
                    input.name_) {
        inflater_.Give(head);
        constexpr std::size_t kLarge = std::size_t{1} << 20;
        if (input.fileSize_ > kLarge && input.givesWhatUnpacks_) GoAhead();
    }

    std::size_t Unpack(char* target, std::size_t size) {
        const std::size_t got =
            ahead_ ? ahead_->Read(target, size) : inflater_.Unpack(target, size);
        if (input_.fileSize_ != 0) input_.bytesRead_ = ahead_ ? ahead_->Reached() : bytesRead_;
        const bool isAtRest = !ahead_ || got == 0;
        if (isAtRest && inflater_.Damage()) {
            input_.damaged_ = inflater_.Damage();
            if (!input_.givesWhatUnpacks_) throw FileError(input_.name_, *input_.damaged_);
        }
        return got;
    }

private:
    // A file of a known size never makes a reader wait.
    std::size_t Read(char* target, std::size_t size) {
        if (input_.fileSize_ == 0) return input_.ReadRaw(target, size);
        const std::size_t got = ReadFrom(input_.descriptor_, input_.name_, target, size);
        bytesRead_ += got;
        return got;
    }

    void GoAhead() {
        try {
            ahead_.emplace(
                [this](char* target, std::size_t size) { return inflater_.Unpack(target, size); },
                [this] { return bytesRead_; });
        } catch (const std::system_error&) {
            return;  // no thread to spare
        }
    }

    Input& input_;
    std::uint64_t bytesRead_;  // of a file of a known size
    Inflater inflater_;
    std::optional<ReadAhead> ahead_;
};

Input::Input(const std::string& path) : name_(path == "-" ? std::string(kStandardInput) : path) {
    descriptor_ = path == "-" ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor_ < 0) throw FileError(name_ + ": " + std::strerror(errno));
    struct stat status {};
    if (fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode)) {
        fileSize_ = static_cast<std::uint64_t>(status.st_size);
    }
    // A small file needs no more than its own size, and a byte to see its end.
    const bool isSmall = fileSize_ > 0 && fileSize_ < kBufferSize;
    buffer_ =
        std::make_shared<Buffer>(isSmall ? static_cast<std::size_t>(fileSize_) + 1 : kBufferSize);
    bytes_ = buffer_->data();
}

Input::Input(FromMemory, std::string_view bytes, std::string name)
    : name_(std::move(name)),
      fileSize_(bytes.size()),
      bytesRead_(bytes.size()),
      bytes_(bytes.data()),
      end_(bytes.size()),
      atEnd_(true),
      begun_(true) {}

// Whoever reads ahead comes to rest before the file is closed.
Input::~Input() {
    unpacker_.reset();
    if (descriptor_ >= 0) close(descriptor_);
}

bool Input::IsSameFileAs(const std::string& path) const {
    struct stat mine {};
    struct stat other {};
    return fstat(descriptor_, &mine) == 0 && stat(path.c_str(), &other) == 0 &&
           S_ISREG(mine.st_mode) && mine.st_dev == other.st_dev && mine.st_ino == other.st_ino;
}

std::size_t Input::ReadRaw(char* target, std::size_t size) {
    if (beforeWaiting_ && !HasBytesNow(descriptor_)) beforeWaiting_();
    const std::size_t got = ReadFrom(descriptor_, name_, target, size);
    bytesRead_ += got;
    return got;
}

std::size_t Input::ReadSome(char* target, std::size_t size) {
    return unpacker_ ? unpacker_->Unpack(target, size) : ReadRaw(target, size);
}

// Makes room after the window, then reads until the window has `size` bytes.
void Input::Fill(std::size_t size) {
    if (begin_ + size > buffer_->size()) MakeRoom(size);
    while (!atEnd_ && end_ - begin_ < size) {
        const std::size_t got = ReadSome(buffer_->data() + end_, buffer_->size() - end_);
        atEnd_ = got == 0;
        end_ += got;
    }
}

// Brings the window to the front of a buffer of at least `size` bytes.
void Input::MakeRoom(std::size_t size) {
    const bool isHeld = buffer_.use_count() > 1;
    if (isHeld || size > buffer_->size()) {
        ChangeBuffer(size);
    } else {
        std::memmove(buffer_->data(), buffer_->data() + begin_, end_ - begin_);
    }
    end_ -= begin_;
    begin_ = 0;
}

void Input::ChangeBuffer(std::size_t size) {
    const std::size_t enough =
        size > buffer_->size() ? std::max(size, buffer_->size() * 2) : buffer_->size();
    std::erase_if(others_, [&](const auto& buffer) {
        return buffer.use_count() == 1 && buffer->size() < enough;
    });
    auto other =
        std::ranges::find(others_, 1, [](const auto& buffer) { return buffer.use_count(); });
    if (other == others_.end()) other = others_.insert(other, std::make_shared<Buffer>(enough));
    std::memcpy((*other)->data(), buffer_->data() + begin_, end_ - begin_);
    buffer_.swap(*other);
    bytes_ = buffer_->data();
}

std::string_view Input::Peek(std::size_t size) {
    if (!begun_) {
        begun_ = true;
        Fill(kGzipMagic.size());
        const std::string_view head(bytes_, end_);
        if (head.starts_with(kGzipMagic)) {
            unpacker_ = std::make_unique<Unpacker>(*this, head);
            end_ = 0;
        }
    }
    if (end_ - begin_ < size && !atEnd_) Fill(size);
    return {bytes_ + begin_, end_ - begin_};
}

void Input::Skip(std::size_t size) {
    const std::size_t taken = std::min(size, end_ - begin_);
    begin_ += taken;
    offset_ += taken;
}

std::string ReadWhole(Input& input, std::uint64_t most, const std::string& advice) {
    std::string bytes;
    for (;;) {
        const std::string_view window = input.Peek(1);
        if (window.empty()) return bytes;
        if (window.size() > most - bytes.size()) {
            throw FileError(input.Name(), {FaultCode::kTooLarge, {}, std::to_string(most), advice});
        }
        bytes += window;
        input.Skip(window.size());
    }
}

}  // namespace quillory
