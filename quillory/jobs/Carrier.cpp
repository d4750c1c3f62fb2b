#include <quillory/exchange/Input.h>
#include <quillory/jobs/Carrier.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <utility>

namespace quillory {
namespace {

// The byte's place in the file is known where the field stands there as it is.
std::string InvalidText(const Item& item, const InvalidByte& invalid) {
    std::array<char, 8> hex{};
    std::snprintf(hex.data(), hex.size(), "0x%02X", static_cast<unsigned char>(*invalid.at));
    std::string text = "field " + Printable(invalid.tag) + ": byte " + hex.data() + " is no UTF-8";
    const char* begin = item.bytes.data();
    const char* end = begin + item.bytes.size();
    if (std::less_equal<>()(begin, invalid.at) && std::less<>()(invalid.at, end)) {
        const auto offset = static_cast<std::uint64_t>(invalid.at - begin);
        text += " (byte " + std::to_string(item.offset + offset) + ")";
    }
    return text;
}

}  // namespace

Carrier::Carrier(CarrierOptions options, RecordWriter& writer, Reporter& reporter)
    : options_(std::move(options)),
      writer_(writer),
      reporter_(reporter),
      recoder_(options_.recoder) {
    if (!options_.rejects.empty()) rejects_ = std::make_unique<Output>(options_.rejects);
}

void Carrier::Raise(Status status) {
    status_ = std::max(status_, status);
}

void Carrier::Reject(const Item& item) {
    if (rejects_) rejects_->Write(item.bytes);
    status_ = kStatusFindings;
}

void Carrier::CountLosses(const Item& item) {
    if (recordLosses_.Empty()) return;
    if (options_.eachLoss) {
        reporter_.Say(item, "characters not carried",
                      "characters not carried:\n" + recordLosses_.Text("    "));
    }
    if (recordLosses_.Real()) status_ = kStatusFindings;
    losses_.Add(recordLosses_);
    recordLosses_.Clear();
}

// Every record that has to stay is named.
void Carrier::Refuse(const Item& item, const std::string& reason) {
    recordLosses_.Clear();
    reporter_.SayAlways(item, reason);
    ++rejected_;
    Reject(item);
}

bool Carrier::Prepare(Item& item) {
    if (!options_.prepare) return true;
    const std::string reason = options_.prepare(item, recordLosses_);
    if (reason.empty()) return true;
    Refuse(item, reason);
    return false;
}

void Carrier::TakeRecord(Item& item) {
    if (!item.reason.empty()) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
    }
    const Recoder::Result recoded = recoder_.Recode(item.record, recordLosses_);
    if (recoded.invalid) {
        Refuse(item, "not written: " + InvalidText(item, *recoded.invalid));
        return;
    }
    if (recoded.mislabelled) {
        ++mislabelled_;
        reporter_.Say(item, "leader byte 09 names another character set",
                      "leader byte 09 says " +
                          std::string(CharsetName(LabelledCharset(item.bytes))) +
                          ", the bytes are " + std::string(CharsetName(recoded.from)));
    }
    if (!Prepare(item)) return;
    const WriteResult result = writer_.Write(item.record, recordLosses_);
    CountLosses(item);
    if (result.leaderMended) ++leadersMended_;
    if (!result.reason.empty()) {
        const char* kind = result.written ? "not written in full" : "can't be written";
        reporter_.Say(item, kind, result.reason);
        status_ = kStatusFindings;
    }
    if (result.written) {
        ++written_;
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
    if (reporter_.Quiet()) return;
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
    if (stray_ > 0) text += ", stray bytes in " + Counted(stray_, "place");
    if (mislabelled_ > 0) text += ", " + std::to_string(mislabelled_) + " mislabelled";
    reporter_.Say(text);
}

void Carrier::Finish() {
    if (rejects_) rejects_->Finish();
}

}  // namespace quillory
