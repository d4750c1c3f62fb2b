#pragma once

#include <quillory/jobs/PrintTarget.h>
#include <quillory/jobs/PrintWork.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/StoredItems.h>

#include <functional>

namespace quillory {

// The records of which cards or labels are made.
struct PrintSource {
    InputOptions input;
    bool isStored = false;  // those of the store that `input.where` asks for, and no files
    RecordIds ids = {};     // only these of the store; none for all that are asked for
};

struct PrintRecordsOptions {
    PrintSource source;
    PrintChoice choice;
};

// These make the cards or labels of records. A record without what they need is named. Result:
// findings for such a record, and for damage. They throw FileError and UsageError.

// Lays them out, for a target.
Status PrintRecords(const PrintRecordsOptions& options, PrintTarget& target, Reporter& reporter);
// Adds them to the user's queue, all of them or, after an error, none.
Status QueueRecords(const PrintRecordsOptions& options, Reporter& reporter);

// These work on the user's queue. What is damaged in it is named, with findings as the result.

// Lays out what waits there. The queue stays as it is.
Status PrintQueued(const PrintChoice& choice, PrintTarget& target, Reporter& reporter);
Status ListQueue(PrintQueue::Kind kind, const std::function<void(const QueuedItem& queued)>& take,
                 Reporter& reporter);
// Asks the user through the library's port of questions first. Result: findings if the queue is
// still there.
Status ClearQueue(PrintQueue::Kind kind, Reporter& reporter);

}  // namespace quillory
