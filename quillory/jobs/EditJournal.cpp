#include <quillory/faults/Errors.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/text/Fnv1a.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/record/CommFormat.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <map>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace quillory {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMagic = "quillory journal 1\n";
constexpr mode_t kMode = 0600;
constexpr const char* kNewRecords = "new-";  // names of journals of new records begin so

std::string Hexadecimal(std::uint64_t number) {
    char text[20];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(number));
    return text;
}

// The parts of an entry: numbers of 8 bytes, the lowest first, and texts after their sizes.
class Writer {
public:
    void Put(std::uint64_t number) {
        archive_ << static_cast<std::uint32_t>(number)
                 << static_cast<std::uint32_t>(number >> kHalf);
    }
    void Put(std::string_view text) {
        Put(std::uint64_t{text.size()});
        archive_.Write(text.data(), text.size());
    }
    const std::string& Bytes() const { return stream_.GetBytes(); }

    static constexpr int kHalf = 32;  // of a number, in bits

private:
    zorby::MemoryStream stream_;
    zorby::CArchive archive_{stream_, zorby::CArchive::store};
};

// Reads what a Writer wrote. Throws CArchiveException for bytes that end before.
class Source {
public:
    explicit Source(std::string_view bytes) : bytes_(bytes), stream_(bytes) {}

    std::uint64_t Number() {
        std::uint32_t low = 0;
        std::uint32_t high = 0;
        archive_ >> low >> high;
        return low | std::uint64_t{high} << Writer::kHalf;
    }
    std::string_view Text() {
        const std::uint64_t size = Number();
        const std::uint64_t begin = stream_.GetPosition();
        if (size > bytes_.size() - begin) {
            throw zorby::CArchiveException(zorby::CArchiveException::kEndOfFile, {}, begin);
        }
        stream_.Seek(begin + size);
        return bytes_.substr(begin, size);
    }
    bool IsAtEnd() const { return stream_.GetPosition() == bytes_.size(); }

private:
    std::string_view bytes_;
    zorby::MemoryViewStream stream_;
    zorby::CArchive archive_{stream_, zorby::CArchive::load};
};

std::string BytesOf(const KeptChange& change) {
    Writer parts;
    parts.Put(change.record);
    parts.Put(std::uint64_t{change.isNew});
    parts.Put(std::uint64_t{change.isTaken});
    parts.Put(change.origin);
    parts.Put(change.state.leader);
    parts.Put(std::uint64_t{change.state.fields.size()});
    for (const auto& [tag, content, given] : change.state.fields) {
        parts.Put(tag);
        parts.Put(content);
    }
    Writer entry;
    entry.Put(Fnv1aOf(parts.Bytes()));
    entry.Put(parts.Bytes());
    return entry.Bytes();
}

KeptChange ChangeOf(std::string_view bytes) {
    Source source(bytes);
    KeptChange change;
    change.record = source.Number();
    change.isNew = source.Number() != 0;
    change.isTaken = source.Number() != 0;
    change.origin = source.Number();
    change.state.leader = source.Text();
    const std::uint64_t count = source.Number();
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::string tag(source.Text());
        change.state.fields.push_back({tag, std::string(source.Text()), -1});
    }
    return change;
}

using LastChanges = std::map<std::uint64_t, KeptChange>;  // by record

// As far as the entries are whole.
LastChanges LastOf(std::string_view entries) {
    LastChanges last;
    Source source(entries);
    try {
        while (!source.IsAtEnd()) {
            const std::uint64_t sign = source.Number();
            const std::string_view entry = source.Text();
            if (Fnv1aOf(entry) != sign) break;
            KeptChange change = ChangeOf(entry);
            last[change.record] = std::move(change);
        }
    } catch (const zorby::CArchiveException&) {
        return last;
    }
    return last;
}

std::string ReasonOf(int error) {
    return std::strerror(error);
}

fs::path LockOf(const fs::path& journal) {
    return journal.string() + ".lock";
}

std::string NameFor(const std::string& path) {
    if (path.empty()) {
        static int count = 0;
        return kNewRecords + std::to_string(getpid()) + '-' + std::to_string(++count) + '-' +
               Hexadecimal(static_cast<std::uint64_t>(std::time(nullptr)));
    }
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(path, error);
    return Hexadecimal(Fnv1aOf(error ? path : whole.string()));
}

}  // namespace

// The bytes that say how long a record is differ from one writer to the next.
std::uint64_t SignOf(const EditSession::State& state) {
    Fnv1a hash;
    std::string leader = state.leader;
    for (std::size_t i = 0; i < leader.size(); ++i) {
        const bool isLength = i < 5 || (zorby::kLeaderBaseAddress <= i && i < 17);
        if (isLength) leader[i] = '0';
    }
    hash.Add(leader);
    for (const auto& [tag, content, given] : state.fields) {
        hash.Add(tag);
        hash.Add(content);
        hash.Add(zorby::kFieldEnd);
    }
    return hash.Value();
}

EditJournal::EditJournal(const fs::path& folder, const std::string& path)
    : journal_(folder / (NameFor(path) + ".journal")), hold_(LockOf(journal_)) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw FileError(folder.string() + ": " + error.message());
    hold_.Take();
}

EditJournal::~EditJournal() {
    if (descriptor_ >= 0) close(descriptor_);
}

std::vector<KeptChange> EditJournal::Left() const {
    return ReadJournal(journal_);
}

void EditJournal::Open() {
    if (descriptor_ >= 0) return;
    descriptor_ = open(journal_.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, kMode);
    if (descriptor_ < 0) {
        throw FileError(journal_.string() + ": can't be written: " + ReasonOf(errno));
    }
    if (lseek(descriptor_, 0, SEEK_END) == 0) Append(std::string(kMagic));
}

void EditJournal::Write(const KeptChange& change) {
    if (!IsOurs()) return;
    Open();
    Append(BytesOf(change));
}

void EditJournal::Rewrite(const std::vector<KeptChange>& changes) {
    if (!IsOurs()) return;
    const fs::path whole = journal_;
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
    journal_ += ".new";
    std::error_code error;
    fs::remove(journal_, error);
    try {
        Open();
        for (const KeptChange& change : changes) Append(BytesOf(change));
    } catch (...) {
        fs::remove(journal_, error);
        if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
        journal_ = whole;
        throw;
    }
    fs::rename(journal_, whole, error);
    journal_ = whole;
    if (error) throw FileError(whole.string() + ": " + error.message());
}

// All of it or nothing.
void EditJournal::Append(const std::string& bytes) {
    const off_t end = lseek(descriptor_, 0, SEEK_END);
    const ssize_t size = write(descriptor_, bytes.data(), bytes.size());
    const bool isWhole = size == static_cast<ssize_t>(bytes.size());
    const int error = size < 0 ? errno : ENOSPC;
    if (isWhole && fdatasync(descriptor_) == 0) return;
    const int reason = isWhole ? errno : error;
    if (ftruncate(descriptor_, end) != 0) close(std::exchange(descriptor_, -1));
    throw FileError(journal_.string() + ": can't be written: " + ReasonOf(reason));
}

void EditJournal::Clear() {
    if (!IsOurs()) return;
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
    std::error_code ignored;
    fs::remove(journal_, ignored);
}

std::vector<KeptChange> ReadJournal(const fs::path& journal) {
    std::ifstream file(journal, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    std::vector<KeptChange> left;
    if (!bytes.starts_with(kMagic)) return left;
    LastChanges last = LastOf(std::string_view(bytes).substr(kMagic.size()));
    left.reserve(last.size());
    for (auto& [record, change] : last) {
        if (!change.isTaken) left.push_back(std::move(change));
    }
    return left;
}

std::vector<fs::path> NewRecordsLeft(const fs::path& folder) {
    std::vector<fs::path> journals;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const fs::path& journal = entry.path();
        const bool isOfNew = journal.filename().string().starts_with(kNewRecords) &&
                             journal.extension() == ".journal";
        if (!isOfNew) continue;
        FileHold hold(LockOf(journal));
        if (hold.Take()) journals.push_back(journal);
    }
    return journals;
}

}  // namespace quillory
