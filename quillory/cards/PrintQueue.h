#pragma once

#include <quillory/cards/PrintItem.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zorby {
class CQueueFile;
}

namespace quillory {

// An item as it waits in a queue.
struct QueuedItem {
    PrintItem item;
    int panels = 1;  // pieces of paper that it was counted as
};

// What is wrong with an item of a queue.
struct QueueDamage {
    std::uint64_t number = 0;  // of the item, from 1
    std::uint64_t offset = 0;  // of its first byte in the file
    std::string reason;
};

// The user's queue of cards or labels: items that are added until they are printed together. Its
// file is that of the library, which keeps how many pieces of paper the items take. The rest is
//
//   text   the name of a printer, as the library's archive writes a text; empty
//   8      "QuilCard" or "QuilLabl"
//   int32  the version, 1
//   items, until their pieces of paper are as many as the file says:
//     int32  length of what follows the next number, in bytes
//     int32  CRC-32 of it (that of zlib)
//     int32  use, then the control number as a text, pieces of paper and number of blocks as int32,
//            and for each block its role as int32 and a text
//
// in the form of the library's archive, little-endian. What stands after the items was left by an
// addition that didn't come to its end.
class PrintQueue {
public:
    enum Kind : std::int32_t { kCards, kLabels };

    // The queue of the user of the profile in force. Throws FileError if the file can't be opened,
    // is open elsewhere, or is no such queue; it is then as it was. A queue that is not there is
    // created only if `mayCreate`; else it is an empty one.
    PrintQueue(Kind kind, bool mayCreate);
    ~PrintQueue();
    PrintQueue(const PrintQueue&) = delete;
    PrintQueue& operator=(const PrintQueue&) = delete;

    const std::string& Path() const { return path_; }
    // Pieces of paper that the items take, as the file says.
    int Count() const { return count_; }

    // Hands each item to `take`, until it returns false, and what is damaged to `damaged`: the
    // items after it are read, too, unless it is not known where they begin. Throws FileError.
    void ForEach(const std::function<bool(const QueuedItem& queued)>& take,
                 const std::function<void(const QueueDamage& damage)>& damaged);

    // To add items: Begin, Add for each, and Finish. They are in the queue only after Finish; what
    // an addition leaves that does not come to it counts for nothing. Throws FileError, also for a
    // damaged queue, which stays as it is.
    void BeginAdding();
    void Add(const QueuedItem& queued);
    void FinishAdding();

    // Asks the user through the port in force, and deletes the queue after a yes. False if it is
    // still there.
    static bool Delete(Kind kind);
    static bool IsThere(Kind kind);

private:
    struct Entry;

    void ReadHead();
    void WriteHead();
    void SetCount(int count);
    bool ReadEntry(Entry& entry);
    template <class Act>
    void Guarded(Act act) const;

    Kind kind_;
    std::unique_ptr<zorby::CQueueFile> file_;  // null if there is none
    std::string path_;
    int count_ = 0;
    std::uint64_t first_ = 0;  // where the items begin
    std::int64_t added_ = 0;   // pieces of paper of what is being added
};

}  // namespace quillory
