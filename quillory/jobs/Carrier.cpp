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

std::unique_ptr<Output> FileOfRejects(const CarrierOptions& options) {
    if (options.rejects.empty()) return nullptr;
    return std::make_unique<Output>(options.rejects, OutputRole::kBeside, options.force);
}

}  // namespace

void CarrierTotals::Add(const CarrierTotals& others) {
    status = std::max(status, others.status);
    written += others.written;
    rejected += others.rejected;
    partial += others.partial;
    stray += others.stray;
    mislabelled += others.mislabelled;
    leadersMended += others.leadersMended;
    losses.Add(others.losses);
}

Carrier::Carrier(const CarrierOptions& options, RecordWriter& writer, Reporter& reporter)
    : Carrier(options, writer, FileOfRejects(options), reporter) {}

Carrier::Carrier(CarrierOptions options, RecordWriter& writer, std::unique_ptr<Output> rejects,
                 Reporter& reporter)
    : options_(std::move(options)),
      writer_(writer),
      reporter_(reporter),
      recoder_(options_.recoder),
      rejects_(std::move(rejects)) {}

void Carrier::Add(const CarrierTotals& others, const Pieces& rejects) {
    totals_.Add(others);
    if (rejects_) rejects_->Write(rejects);
}

void Carrier::Raise(Status status) {
    totals_.status = std::max(totals_.status, status);
}

void Carrier::Reject(const Item& item) {
    if (rejects_) rejects_->Write(item.bytes);
    totals_.status = kStatusFindings;
}

// What a record was read without is not lost.
void Carrier::KeepIfPartial(const Item& item) {
    if (!item.isPartial) return;
    ++totals_.partial;
    if (rejects_) rejects_->Write(item.bytes);
}

void Carrier::CountLosses(const Item& item) {
    if (recordLosses_.Empty()) return;
    if (options_.eachLoss) {
        reporter_.Say(item, {FaultCode::kCharactersNotCarried}, recordLosses_.Text("    "));
    }
    if (recordLosses_.Real()) totals_.status = kStatusFindings;
    totals_.losses.Add(recordLosses_);
    recordLosses_.Clear();
}

// Every record that is refused is named.
void Carrier::Refuse(const Item& item, const ItemFault& fault, const std::string& lines) {
    recordLosses_.Clear();
    reporter_.SayAlways(item, fault, lines);
    ++totals_.rejected;
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
        totals_.status = kStatusFindings;
    }
    const Recoder::Result recoded = recoder_.Recode(item.record, recordLosses_);
    if (recoded.invalid) {
        Refuse(item, FaultOf(item, *recoded.invalid));
        return;
    }
    if (recoded.mislabelled) {
        ++totals_.mislabelled;
        reporter_.Say(item, *recoded.mislabelled);
    }
    if (Prepare(item)) Write(item);
}

void Carrier::Write(const Item& item) {
    const WriteResult result = writer_.Write(item.record, recordLosses_);
    CountLosses(item);
    if (result.leaderMended) ++totals_.leadersMended;
    for (const Fault& fault : result.faults) {
        reporter_.Say(item, fault);
        totals_.status = kStatusFindings;
    }
    if (result.written) {
        if (!result.isApart) ++totals_.written;
        KeepIfPartial(item);
    } else {
        ++totals_.rejected;
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
            ++totals_.stray;
        } else {
            ++totals_.rejected;
        }
        reporter_.SayFault(item);
    }
    Reject(item);
}

void Carrier::Summarize() const {
    if (!totals_.losses.Empty()) {
        reporter_.Say("characters not carried as they were:\n" + totals_.losses.Text("    "));
    }
    if (reporter_.Quiet() || options_.isDryRun) return;
    if (totals_.leadersMended > 0) {
        reporter_.Say("leader 10-11 and 20-23 set to \"22\" and \"4500\" in " +
                      Counted(totals_.leadersMended, "record"));
    }
    if (totals_.status == kStatusWell) return;
    std::string text = Counted(totals_.written, "record") + " written";
    if (totals_.rejected > 0) {
        text += ", " + std::to_string(totals_.rejected) + " not";
        if (rejects_) text += " (kept in " + options_.rejects + ")";
    }
    if (totals_.partial > 0) {
        text += ", " + std::to_string(totals_.partial) + " read in part";
        if (rejects_) text += " (kept whole in " + options_.rejects + ")";
    }
    if (totals_.stray > 0) text += ", stray bytes in " + Counted(totals_.stray, "place");
    if (totals_.mislabelled > 0) {
        text += ", " + std::to_string(totals_.mislabelled) + " mislabelled";
    }
    const bool isAllThere = totals_.rejected + totals_.partial + totals_.stray == 0;
    if (!rejects_ && !isAllThere) text += "; --rejects FILE keeps what is not written in full";
    reporter_.Say(text);
}

void Carrier::Complete() {
    if (rejects_) rejects_->Complete();
}

void Carrier::Finish() {
    if (rejects_) rejects_->Finish();
}

}  // namespace quillory
