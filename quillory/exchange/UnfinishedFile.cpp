#include <quillory/exchange/UnfinishedFile.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillory {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".quillory-";
constexpr std::size_t kIdSize = 6;

[[noreturn]] void Fail() {
    throw std::system_error(errno, std::generic_category());
}

// The name of a file that is to be removed, where a signal handler can reach it. Names are many
// where one work writes many files; none is ever taken from the list, a free one is used again.
struct Slot {
    std::atomic<char*> name;
    Slot* next;
};
std::atomic<Slot*> slots{};

std::atomic<char*>& Remember(const std::string& path) {
    char* copy = strdup(path.c_str());
    for (Slot* slot = slots.load(); slot != nullptr; slot = slot->next) {
        char* none = nullptr;
        if (slot->name.compare_exchange_strong(none, copy)) return slot->name;
    }
    auto* slot = new Slot{copy, slots.load()};
    while (!slots.compare_exchange_weak(slot->next, slot)) {
    }
    return slot->name;
}

extern "C" void EndBySignal(int signal) {
    for (Slot* slot = slots.load(); slot != nullptr; slot = slot->next) {
        const char* name = slot->name.load();
        if (name != nullptr) unlink(name);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// Whether a name is ".quillory-XXXXXX", alone or with the number of a file.
bool IsOurs(std::string_view name) {
    if (!name.starts_with(kPrefix)) return false;
    const std::string_view id = name.substr(kPrefix.size());
    if (id.size() < kIdSize || id.substr(0, kIdSize).find('-') != id.npos) return false;
    const std::string_view number = id.substr(kIdSize);
    return number.empty() || (number.size() > 1 && number.front() == '-' &&
                              number.find_first_not_of("0123456789", 1) == number.npos);
}

// Takes the lock of a program that is no more. Result: false if it is alive, or if nobody can say.
bool LockOfTheDead(const fs::path& lock, int& descriptor) {
    descriptor = open(lock.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return errno == ENOENT;
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

void RemoveFilesOfTheDead(const fs::path& folder) {
    std::map<std::string, std::vector<fs::path>> files;  // by the name of their lock
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!IsOurs(name)) continue;
        auto& ofLock = files[name.substr(0, kPrefix.size() + kIdSize)];
        if (name.size() > kPrefix.size() + kIdSize) ofLock.push_back(entry->path());
    }
    for (const auto& [name, ofLock] : files) {
        const fs::path lock = folder / name;
        int descriptor = -1;
        if (LockOfTheDead(lock, descriptor)) {
            for (const fs::path& file : ofLock) unlink(file.c_str());
            unlink(lock.c_str());
        }
        if (descriptor >= 0) close(descriptor);
    }
}

}  // namespace

// A name that is removed with the object, or when a signal ends the program.
class UnfinishedFile::Name {
public:
    explicit Name(std::string path) : path_(std::move(path)), remembered_(Remember(path_)) {}
    ~Name() {
        unlink(path_.c_str());
        std::free(remembered_.exchange(nullptr));
    }
    Name(const Name&) = delete;
    Name& operator=(const Name&) = delete;

    const std::string& Path() const { return path_; }

private:
    std::string path_;
    std::atomic<char*>& remembered_;
};

// A folder that this program writes into, with the lock that says so.
class UnfinishedFile::Folder {
public:
    explicit Folder(fs::path path) : path_(std::move(path)) {
        RemoveFilesOfTheDead(path_);
        while (!Lock()) {
        }
    }
    ~Folder() {
        if (hasNewNames_ && SyncsFiles()) Sync();
        close(descriptor_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    void HasNewName() { hasNewNames_ = true; }
    std::string NextPath() { return name_->Path() + "-" + std::to_string(++files_); }

private:
    // Another program may take the new file for that of a dead one before it is locked. Where a
    // file system has no locks, nobody removes anything.
    bool Lock() {
        std::string path = (path_ / kPrefix).string() + std::string(kIdSize, 'X');
        descriptor_ = mkostemp(path.data(), O_CLOEXEC);
        if (descriptor_ < 0) Fail();
        name_ = std::make_unique<Name>(path);
        flock(descriptor_, LOCK_EX);
        struct stat status {};
        if (fstat(descriptor_, &status) != 0 || status.st_nlink > 0) return true;
        close(descriptor_);
        return false;
    }

    void Sync() const {
        const int descriptor = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (descriptor < 0) return;  // a folder may be written into and not read
        fsync(descriptor);
        close(descriptor);
    }

    fs::path path_;
    int descriptor_ = -1;
    std::unique_ptr<Name> name_;
    unsigned files_ = 0;
    bool hasNewNames_ = false;
};

std::shared_ptr<UnfinishedFile::Folder> UnfinishedFile::Enter(const fs::path& folder) {
    static std::map<fs::path, std::weak_ptr<Folder>> folders;
    std::weak_ptr<Folder>& known = folders[folder];
    std::shared_ptr<Folder> entered = known.lock();
    if (!entered) known = entered = std::make_shared<Folder>(folder);
    return entered;
}

UnfinishedFile::UnfinishedFile(const fs::path& folder)
    : folder_(Enter(folder)), name_(std::make_unique<Name>(folder_->NextPath())) {
    constexpr mode_t kOnlyForUs = 0600;
    const int made =
        open(name_->Path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOnlyForUs);
    if (made < 0) Fail();
    close(made);
}

UnfinishedFile::~UnfinishedFile() = default;

int UnfinishedFile::Open() const {
    return open(name_->Path().c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
}

void UnfinishedFile::TakeName(const fs::path& path) {
    if (rename(name_->Path().c_str(), path.c_str()) != 0) Fail();
    name_.reset();
    folder_->HasNewName();
}

bool SyncsFiles() {
    const char* variable = std::getenv("QUILLORY_SYNC");
    return variable == nullptr || std::string_view(variable) != "off";
}

void RemoveUnfinishedFilesOnSignals() {
    for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU, SIGALRM, SIGVTALRM, SIGPROF,
                             SIGUSR1, SIGUSR2}) {
        if (std::signal(signal, EndBySignal) == SIG_IGN) std::signal(signal, SIG_IGN);
    }
}

}  // namespace quillory
