#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/KeyedFile.h>
#include <quillory/jobs/MergeFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/sets/LinkNumbers.h>

#include <algorithm>
#include <array>
#include <memory>

namespace quillory {
namespace {

PlaceSet FieldsOf(const MergeOptions& options) {
    PlaceSet places = ParsePlaces("--fields", options.fields);
    for (const PlacePattern& pattern : places.patterns) {
        const Place& place = pattern.place;
        const bool isWhole = !pattern.HasCodes() && !pattern.IsCoded() && !place.IsLeader() &&
                             place.occurrence == 0 && place.material == '\0';
        if (isWhole) continue;
        throw UsageError("--fields: " + PlacePatternText(pattern) +
                         " is not a whole field; fields are merged as they are");
    }
    return places;
}

InputOptions RecordsOf(const MergeOptions& options) {
    InputOptions input = options.input;
    input.files.resize(1);
    return input;
}

// All of its records, whichever of the first file are asked for.
InputOptions OthersOf(const MergeOptions& options) {
    InputOptions input = options.input;
    input.files.erase(input.files.begin());
    input.where = {};
    return input;
}

class Merger {
public:
    Merger(const MergeOptions& options, Reporter& reporter)
        : options_(options),
          fields_(FieldsOf(options)),
          target_(CharsetOfOutput(options.output)),
          reporter_(reporter),
          keys_(WaysToMatch(options.by), options.input.charset),
          others_(WaysToMatch(options.by), options.input.charset, reporter) {
        if (target_ == kCharsetAuto) target_ = options.input.charset;
    }

    Status ReadOthers(const std::function<bool(Item& item)>& take) {
        const Status read = others_.Read(OthersOf(options_), take);
        others_.NameDoubles();
        isUsed_.resize(others_.Count());
        return read;
    }

    // The other record's fields, in the character set of this one, last until the next record.
    void Merge(Item& item, Losses& losses) {
        ++records_;
        Record& record = item.record;
        keys_.Of(record, recordKeys_);
        const std::string file = reporter_.File();
        const auto partner = others_.FindPartner(recordKeys_);
        if (partner) {
            isUsed_[*partner] = true;
            other_ = others_.At(*partner).item.record;
            const Charset charset = target_ == kCharsetAuto ? ActualCharset(record) : target_;
            RecoderTo(charset).Recode(other_, losses);
        }
        reporter_.GoBackTo(file);
        if (partner) MergeOther(item);
    }

    bool HasFindings() const { return notMerged_ > 0; }

    void Summarize() {
        std::uint64_t unused = 0;
        for (KeyedFile::Index i = 0; i < others_.Count(); ++i) {
            if (isUsed_[i]) continue;
            ++unused;
            const KeyedFile::Found& other = others_.At(i);
            reporter_.Say(other.item, {other.hasKey ? FaultCode::kGoesWithNone
                                                    : FaultCode::kKeylessGoesWithNone});
        }
        if (unused > 0) reporter_.EndFile();
        if (reporter_.Quiet()) return;
        std::string text =
            std::to_string(changed_) + " of " + Counted(records_, "record") + " changed";
        if (unused > 0) {
            text += ", " + Counted(unused, "record") + " of " + options_.input.files[1] +
                    " went with none";
        }
        reporter_.Say(text);
    }

private:
    void MergeOther(Item& item) {
        if (!links_.FitInto(item.record, other_)) {
            ++notMerged_;
            reporter_.Say(item, {FaultCode::kNoLinkNumber});
        } else if (MergeFields(item.record, other_, fields_, options_.mode)) {
            ++changed_;
        }
    }

    Recoder& RecoderTo(Charset charset) {
        auto& recoder = recoders_[static_cast<std::size_t>(charset)];
        if (!recoder) {
            recoder = std::make_unique<Recoder>(
                RecoderOptions{options_.input.charset, charset, options_.output.normalForm, false});
        }
        return *recoder;
    }

    const MergeOptions& options_;
    PlaceSet fields_;
    LinkNumbers links_{fields_, options_.mode};
    Charset target_;
    Reporter& reporter_;
    MatchKeys keys_;
    KeyedFile others_;
    std::array<std::unique_ptr<Recoder>, 4> recoders_;  // by the set that they write
    std::vector<bool> isUsed_;
    std::vector<std::string> recordKeys_;
    Record other_;
    std::uint64_t records_ = 0;
    std::uint64_t changed_ = 0;
    std::uint64_t notMerged_ = 0;
};

}  // namespace

Status MergeFiles(const MergeOptions& options, Reporter& reporter) {
    if (options.input.files.size() != 2) {
        throw UsageError("two files are merged: the records, and those with fields for them");
    }
    CheckNotAnInput(options.input.files, options.output.output);
    CheckNotAnInput(options.input.files, options.output.rejects);
    Merger merger(options, reporter);
    const ItemSource source = [&](const auto& take) {
        const Status others = merger.ReadOthers(take);
        return std::max(others, ReadFiles(RecordsOf(options), reporter, take));
    };
    const Preparation merge = [&merger](Item& item, Losses& losses) {
        merger.Merge(item, losses);
        return std::string();
    };
    const Status status =
        WriteItems(source, options.input.charset, options.output, reporter, merge);
    merger.Summarize();
    return std::max(status, merger.HasFindings() ? kStatusFindings : kStatusWell);
}

}  // namespace quillory
