#include <quillory/exchange/Input.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/Carrier.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace quillory {
namespace {

// The byte's place in the file is known where the field stands there as it is.
ItemFault FaultOf(const Item& item, const InvalidByte& invalid) {
    ItemFault fault{invalid.fault, item.offset};
    const char* begin = item.bytes.data();
    const char* end = begin + item.bytes.size();
    if (std::less_equal<>()(begin, invalid.at) && std::less<>()(invalid.at, end)) {
        fault.offset += static_cast<std::uint64_t>(invalid.at - begin);
    }
    return fault;
}

}  // namespace

Carrier::Carrier(CarrierOptions options, RecordWriter& writer, Reporter& reporter)
    : options_(std::move(options)),
      writer_(writer),
      reporter_(reporter),
      recoder_(options_.recoder) {
    if (options_.rejects.empty()) return;
    rejects_ = std::make_unique<Output>(options_.rejects, OutputRole::kBeside, options_.force);
}

void Carrier::Raise(Status status) {
    status_ = std::max(status_, status);
}

void Carrier::Reject(const Item& item) {
    if (rejects_) rejects_->Write(item.bytes);
    status_ = kStatusFindings;
}

// What a record was read without is not lost.
void Carrier::KeepIfPartial(const Item& item) {
    if (!item.isPartial) return;
    ++partial_;
    if (rejects_) rejects_->Write(item.bytes);
}

void Carrier::CountLosses(const Item& item) {
    if (recordLosses_.Empty()) return;
    if (options_.eachLoss) {
        reporter_.Say(item, {FaultCode::kCharactersNotCarried}, recordLosses_.Text("    "));
    }
    if (recordLosses_.Real()) status_ = kStatusFindings;
    losses_.Add(recordLosses_);
    recordLosses_.Clear();
}

// Every record that is refused is named.
void Carrier::Refuse(const Item& item, const ItemFault& fault, const std::string& lines) {
    recordLosses_.Clear();
    reporter_.SayAlways(item, fault, lines);
    ++rejected_;
    Reject(item);
}

bool Carrier::Prepare(Item& item) {
    if (!options_.prepare) return true;
    const std::string lines = options_.prepare(item, recordLosses_);
    if (lines.empty()) return true;
    Refuse(item, {{FaultCode::kStoppedByPolicy}, item.offset}, lines);
    return false;
}

void Carrier::TakeRecord(Item& item) {
    if (item.fault) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
    }
    const Recoder::Result recoded = recoder_.Recode(item.record, recordLosses_);
    if (recoded.invalid) {
        Refuse(item, FaultOf(item, *recoded.invalid));
        return;
    }
    if (recoded.mislabelled) {
        ++mislabelled_;
        reporter_.Say(item, *recoded.mislabelled);
    }
    if (Prepare(item)) Write(item);
}

void Carrier::Write(const Item& item) {
    const WriteResult result = writer_.Write(item.record, recordLosses_);
    CountLosses(item);
    if (result.leaderMended) ++leadersMended_;
    for (const Fault& fault : result.faults) {
        reporter_.Say(item, fault);
        status_ = kStatusFindings;
    }
    if (result.written) {
        ++written_;
        KeepIfPartial(item);
    } else {
        ++rejected_;
        Reject(item);
    }
}

void Carrier::Take(Item& item) {
    if (item.kind == kItemRecord) {
        TakeRecord(item);
        return;
    }
    if (!item.continues) {
        if (item.kind == kItemStray) {
            ++stray_;
        } else {
            ++rejected_;
        }
        reporter_.SayFault(item);
    }
    Reject(item);
}

void Carrier::Summarize() const {
    if (!losses_.Empty()) {
        reporter_.Say("characters not carried as they were:\n" + losses_.Text("    "));
    }
    if (reporter_.Quiet() || options_.isDryRun) return;
    if (leadersMended_ > 0) {
        reporter_.Say("leader 10-11 and 20-23 set to \"22\" and \"4500\" in " +
                      Counted(leadersMended_, "record"));
    }
    if (status_ == kStatusWell) return;
    std::string text = Counted(written_, "record") + " written";
    if (rejected_ > 0) {
        text += ", " + std::to_string(rejected_) + " not";
        if (rejects_) text += " (kept in " + options_.rejects + ")";
    }
    if (partial_ > 0) {
        text += ", " + std::to_string(partial_) + " read in part";
        if (rejects_) text += " (kept whole in " + options_.rejects + ")";
    }
    if (stray_ > 0) text += ", stray bytes in " + Counted(stray_, "place");
    if (mislabelled_ > 0) text += ", " + std::to_string(mislabelled_) + " mislabelled";
    reporter_.Say(text);
}

void Carrier::Complete() {
    if (rejects_) rejects_->Complete();
}

void Carrier::Finish() {
    if (rejects_) rejects_->Finish();
}

}  // namespace quillory
