#include <quillory/cards/PrintQueue.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/queues/CardFile.h>
#include <zorby/queues/LabelFile.h>

#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::CArchive;

constexpr std::uint64_t kCountSize = 4;
constexpr std::size_t kEntryHead = 8;
constexpr std::int32_t kVersion = 1;
constexpr std::size_t kLargestItem = std::size_t{16} << 20U;  // bytes; no record is so long

std::string Head(PrintQueue::Kind kind) {
    zorby::MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    archive << std::string_view();
    const std::string_view sign = kind == PrintQueue::kCards ? "QuilCard" : "QuilLabl";
    archive.Write(sign.data(), sign.size());
    archive << kVersion;
    archive.Close();
    return stream.GetBytes();
}

std::uint32_t Checksum(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()));
}

std::string Stored(const QueuedItem& queued) {
    zorby::MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    archive << static_cast<std::int32_t>(queued.item.use)
            << std::string_view(queued.item.controlNumber)
            << static_cast<std::int32_t>(queued.panels)
            << static_cast<std::int32_t>(queued.item.blocks.size());
    for (const Block& block : queued.item.blocks) {
        archive << static_cast<std::int32_t>(block.role) << std::string_view(block.text);
    }
    archive.Close();
    return stream.GetBytes();
}

QueuedItem Loaded(std::string_view bytes) {
    zorby::MemoryViewStream stream(bytes);
    CArchive archive(stream, CArchive::load);
    QueuedItem queued;
    std::int32_t panels = 0;
    std::int32_t blocks = 0;
    archive >> queued.item.use >> queued.item.controlNumber >> panels >> blocks;
    queued.panels = panels;
    for (std::int32_t i = 0; i < blocks; ++i) {
        Block block;
        archive >> block.role >> block.text;
        queued.item.blocks.push_back(std::move(block));
    }
    return queued;
}

void WriteEntry(const std::string& bytes, zorby::Stream& stream) {
    CArchive archive(stream, CArchive::store);
    archive << static_cast<std::uint32_t>(bytes.size()) << Checksum(bytes);
    archive.Write(bytes.data(), bytes.size());
    archive.Close();
}

std::unique_ptr<zorby::CQueueFile> FileOf(PrintQueue::Kind kind) {
    if (kind == PrintQueue::kCards) return std::make_unique<zorby::CCardFile>();
    return std::make_unique<zorby::CLabelFile>();
}

std::string PathOf(PrintQueue::Kind kind) {
    return kind == PrintQueue::kCards ? zorby::CCardFile::GetFilePath()
                                      : zorby::CLabelFile::GetFilePath();
}

[[noreturn]] void ThrowNotOpened(const zorby::CFileException& failure) {
    if (failure.systemError == EWOULDBLOCK) {
        throw FileError(failure.fileName, {FaultCode::kQueueInUse});
    }
    throw FileError(failure.fileName,
                    {FaultCode::kQueueNotOpened, {}, std::strerror(failure.systemError)});
}

std::string At(std::uint64_t offset) {
    return " at byte " + std::to_string(offset);
}

}  // namespace

struct PrintQueue::Entry {
    std::uint64_t offset = 0;
    std::string bytes;
    bool isSound = true;
    QueuedItem queued;
};

PrintQueue::PrintQueue(Kind kind, bool mayCreate) : kind_(kind), path_(PathOf(kind)) {
    if (!mayCreate && !IsThere(kind)) return;
    file_ = FileOf(kind);
    zorby::CFileException failure;
    if (file_->Open(&failure) == 0) ThrowNotOpened(failure);
    Guarded([this] { ReadHead(); });
}

PrintQueue::~PrintQueue() = default;

template <class Act>
void PrintQueue::Guarded(Act act) const {
    try {
        act();
    } catch (const zorby::CArchiveException& failure) {
        throw FileError(failure.what());
    }
}

// A file that a first addition left before its end has a part of the head at most.
void PrintQueue::ReadHead() {
    const std::string head = Head(kind_);
    first_ = kCountSize + head.size();
    std::string found(static_cast<std::size_t>(std::min(file_->GetSize(), first_)), '\0');
    found.resize(file_->Read(found.data(), found.size()));
    const std::string_view after =
        std::string_view(found).substr(std::min(kCountSize, found.size()));
    if (found.size() >= kCountSize) {
        for (std::size_t i = kCountSize; i-- > 0;) {
            count_ = static_cast<int>(static_cast<unsigned>(count_) << 8U |
                                      static_cast<unsigned char>(found[i]));
        }
    }
    const bool isOurs = after == head || (count_ == 0 && head.starts_with(after));
    if (!isOurs || count_ < 0) throw FileError(path_, {FaultCode::kQueueNotOurs});
}

void PrintQueue::WriteHead() {
    SetCount(0);
    const std::string head = Head(kind_);
    file_->Write(head.data(), head.size());
}

void PrintQueue::SetCount(int count) {
    if (auto* cards = dynamic_cast<zorby::CCardFile*>(file_.get()); cards != nullptr) {
        cards->SetNumberOfPhysicalCards(count);
    } else {
        dynamic_cast<zorby::CLabelFile&>(*file_).SetNumberOfPhysicalLabels(count);
    }
    count_ = count;
}

// At the position of the file. False, with the entry's offset, if it is cut short.
bool PrintQueue::ReadEntry(Entry& entry) {
    entry.offset = file_->GetPosition();
    const std::uint64_t left = file_->GetSize() - std::min(file_->GetSize(), entry.offset);
    if (left < kEntryHead) return false;
    CArchive archive(*file_, CArchive::load);
    std::uint32_t size = 0;
    std::uint32_t checksum = 0;
    archive >> size >> checksum;
    if (size > left - kEntryHead || size > kLargestItem) return false;
    entry.bytes.resize(size);
    archive.Read(entry.bytes.data(), size);
    entry.isSound = Checksum(entry.bytes) == checksum;
    if (!entry.isSound) return true;
    try {
        entry.queued = Loaded(entry.bytes);
        entry.isSound = entry.queued.panels > 0;
    } catch (const zorby::CArchiveException&) {
        entry.isSound = false;
    }
    return true;
}

void PrintQueue::ForEach(const std::function<bool(const QueuedItem& queued)>& take,
                         const std::function<void(const QueueDamage& damage)>& damaged) {
    if (count_ == 0) return;
    Guarded([&] {
        file_->Seek(first_);
        Entry entry;
        std::int64_t left = count_;
        bool isKnown = true;  // how many pieces of paper are left
        for (std::uint64_t number = 1; left > 0; ++number) {
            if (!ReadEntry(entry)) {
                if (!isKnown && entry.offset == file_->GetSize()) return;
                damaged({number, entry.offset, FaultReason({FaultCode::kQueueCutShort})});
                return;
            }
            if (!entry.isSound) {
                damaged({number, entry.offset, FaultReason({FaultCode::kQueueItemDamaged})});
                --left;  // it was one at least
                isKnown = false;
                continue;
            }
            left -= entry.queued.panels;
            if (!take(entry.queued)) return;
        }
    });
}

void PrintQueue::BeginAdding() {
    const auto refuse = [this](const QueueDamage& damage) {
        throw FileError(path_ + At(damage.offset),
                        {FaultCode::kQueueNotAddedTo, {}, damage.reason});
    };
    ForEach([](const QueuedItem&) { return true; }, refuse);
    Guarded([this] {
        if (count_ == 0) WriteHead();
        file_->SetSize(file_->GetPosition());
    });
    added_ = 0;
}

void PrintQueue::Add(const QueuedItem& queued) {
    const std::string bytes = Stored(queued);
    if (count_ + added_ + queued.panels > std::numeric_limits<std::int32_t>::max() ||
        bytes.size() > kLargestItem) {
        throw FileError(path_, {FaultCode::kQueueFull});
    }
    Guarded([&] { WriteEntry(bytes, *file_); });
    added_ += queued.panels;
}

// The number is written when all that it counts is on the device.
void PrintQueue::FinishAdding() {
    Guarded([this] {
        file_->Sync();
        SetCount(static_cast<int>(count_ + added_));
        file_->Sync();
    });
    added_ = 0;
}

bool PrintQueue::Delete(Kind kind) {
    if (kind == kCards) {
        zorby::CCardFile::DeleteFile();
    } else {
        zorby::CLabelFile::DeleteFile();
    }
    return !IsThere(kind);
}

bool PrintQueue::IsThere(Kind kind) {
    return kind == kCards ? zorby::CCardFile::PrintQueueExists()
                          : zorby::CLabelFile::PrintQueueExists();
}

}  // namespace quillory
