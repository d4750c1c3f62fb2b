#include <quillory/faults/Errors.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/store/HomeFolder.h>
#include <quillory/text/Fnv1a.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
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
constexpr const char* kNewRecords = "new";  // the name of journals of new records
constexpr const char* kEnding = ".journal";

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
    if (path.empty()) return kNewRecords;
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(path, error);
    return Hexadecimal(Fnv1aOf(error ? path : whole.string()));
}

fs::path SlotIn(const fs::path& folder, const std::string& name, int number = 1) {
    const std::string tail = number == 1 ? std::string() : '-' + std::to_string(number);
    return folder / (name + tail + kEnding);
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

EditJournal::Slot::Slot(fs::path path)
    : journal(std::move(path)), hold(std::make_unique<FileHold>(LockOf(journal))) {}

EditJournal::EditJournal(const fs::path& folder, const std::string& path, Writers writers)
    : folder_(folder), name_(NameFor(path)), own_(SlotIn(folder_, name_)), writers_(writers) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw FileError(folder.string() + ": " + error.message());
    if (writers_ == Writers::kOne) {
        own_.hold->Take();
    } else {
        TakeLeft();
        TakeFree();
    }
}

// All of the name, in the order of their paths.
std::vector<fs::path> EditJournal::Journals() const {
    std::vector<fs::path> journals;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder_, error)) {
        const std::string stem = entry.path().stem().string();
        const bool isOfName = stem == name_ || stem.starts_with(name_ + '-');
        if (isOfName && entry.path().extension() == kEnding) journals.push_back(entry.path());
    }
    std::ranges::sort(journals);
    return journals;
}

// Those that this object has already are taken for it, too.
void EditJournal::TakeLeft() {
    for (const fs::path& journal : Journals()) {
        Slot slot(journal);
        if (slot.hold->Take() && fs::exists(journal)) left_.push_back(std::move(slot));
    }
}

// A program may end in this moment, and leave its journal.
void EditJournal::TakeFree() {
    for (int number = 1; !IsOurs(); ++number) {
        Slot slot(SlotIn(folder_, name_, number));
        if (!slot.hold->Take()) continue;
        if (fs::exists(slot.journal)) {
            left_.push_back(std::move(slot));
        } else {
            own_ = std::move(slot);
        }
    }
}

EditJournal::~EditJournal() {
    if (descriptor_ >= 0) close(descriptor_);
}

std::vector<KeptChange> EditJournal::Left() const {
    std::vector<KeptChange> changes = ReadJournal(own_.journal);
    AddLeft(changes);
    return changes;
}

void EditJournal::AddLeft(std::vector<KeptChange>& changes) const {
    for (const Slot& slot : left_) {
        for (KeptChange& change : ReadJournal(slot.journal)) changes.push_back(std::move(change));
    }
}

bool EditJournal::IsMoreLeft() const {
    if (writers_ == Writers::kOne) return false;
    return std::ranges::any_of(Journals(), [](const fs::path& journal) {
        return FileHold(LockOf(journal)).IsFree() && !ReadJournal(journal).empty();
    });
}

std::vector<KeptChange> EditJournal::TakeMoreLeft() {
    std::vector<KeptChange> changes;
    if (writers_ == Writers::kMany) {
        TakeLeft();
        AddLeft(changes);
    }
    return changes;
}

void EditJournal::DropLeft() {
    Clear();
    RemoveLeft();
}

void EditJournal::RemoveLeft() {
    std::error_code ignored;
    for (const Slot& slot : left_) fs::remove(slot.journal, ignored);
    left_.clear();
}

void EditJournal::Open() {
    if (descriptor_ >= 0) return;
    descriptor_ = open(own_.journal.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, kMode);
    if (descriptor_ < 0) {
        throw FileError(own_.journal.string() + ": can't be written: " + ReasonOf(errno));
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
    const fs::path whole = own_.journal;
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
    own_.journal += ".new";
    std::error_code error;
    fs::remove(own_.journal, error);
    try {
        Open();
        for (const KeptChange& change : changes) Append(BytesOf(change));
    } catch (...) {
        fs::remove(own_.journal, error);
        if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
        own_.journal = whole;
        throw;
    }
    fs::rename(own_.journal, whole, error);
    own_.journal = whole;
    if (error) throw FileError(whole.string() + ": " + error.message());
    RemoveLeft();
}

void EditJournal::Adopt(const std::vector<KeptChange>& changes) {
    std::vector<KeptChange> all = ReadJournal(own_.journal);
    all.insert(all.end(), changes.begin(), changes.end());
    Rewrite(all);
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
    throw FileError(own_.journal.string() + ": can't be written: " + ReasonOf(reason));
}

void EditJournal::Clear() {
    if (!IsOurs()) return;
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
    std::error_code ignored;
    fs::remove(own_.journal, ignored);
}

fs::path JournalFolder() {
    return HomeFolder() / "journals";
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

}  // namespace quillory
