#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/PartFiles.h>
#include <quillory/jobs/SplitFiles.h>
#include <quillory/sets/KeyPlaces.h>
#include <quillory/sets/PlaceText.h>

#include <memory>

namespace quillory {
namespace {

// Chooses the file of each record before it is written there.
class Divider : public RecordWriter {
public:
    explicit Divider(PartFiles& parts) : parts_(parts) {}

    // Comes for each record as it was read, before Write.
    virtual void Look(const Record& /*record*/) {}

protected:
    PartFiles& Parts() { return parts_; }

private:
    PartFiles& parts_;
};

class DividerByNumber : public Divider {
public:
    DividerByNumber(PartFiles& parts, std::uint64_t records) : Divider(parts), most_(records) {}

    WriteResult Write(const Record& record, Losses& losses) override {
        if (left_ == 0) {
            Parts().ChooseNext();
            left_ = most_;
        }
        WriteResult result = Parts().Write(record, losses);
        if (result.written) --left_;
        return result;
    }

private:
    std::uint64_t most_;
    std::uint64_t left_ = 0;
};

class DividerBySize : public Divider {
public:
    DividerBySize(PartFiles& parts, std::uint64_t bytes) : Divider(parts), most_(bytes) {}

    WriteResult Write(const Record& record, Losses& losses) override {
        if (Parts().SizeWith(record) > most_ || !hasPart_) Parts().ChooseNext();
        hasPart_ = true;
        return Parts().Write(record, losses);
    }

private:
    std::uint64_t most_;
    bool hasPart_ = false;
};

class DividerByPlace : public Divider {
public:
    DividerByPlace(PartFiles& parts, const std::string& by, Charset charset)
        : Divider(parts), place_(ParseKeyPlace("--by", by)), texts_(charset) {}

    void Look(const Record& record) override {
        const auto text = texts_.FirstOf(record, place_);
        name_ = text ? *text : "none";
    }
    WriteResult Write(const Record& record, Losses& losses) override {
        Parts().Choose(name_);
        return Parts().Write(record, losses);
    }

private:
    KeyPlace place_;
    PlaceTexts texts_;
    std::string name_;
};

std::unique_ptr<Divider> MakeDivider(const SplitOptions& options, PartFiles& parts) {
    const int ways = static_cast<int>(options.records > 0) +
                     static_cast<int>(!options.size.empty()) +
                     static_cast<int>(!options.by.empty());
    if (ways != 1) throw UsageError("one of --every, --size and --by says how to divide");
    if (options.records > 0) return std::make_unique<DividerByNumber>(parts, options.records);
    if (!options.size.empty()) {
        return std::make_unique<DividerBySize>(parts, ParseByteSize("--size", options.size));
    }
    return std::make_unique<DividerByPlace>(parts, options.by, options.input.charset);
}

void SayParts(const PartFiles& files, Reporter& reporter) {
    const auto parts = files.Parts();
    std::uint64_t records = 0;
    for (const PartFiles::Summary& part : parts) {
        records += part.records;
        if (!reporter.SaysAll()) continue;
        reporter.Say(part.path + ": " + Counted(part.records, "record"));
    }
    std::string text = Counted(records, "record") + " in " + Counted(parts.size(), "file");
    if (!parts.empty()) text += ": " + parts.front().path;
    if (parts.size() > 1) text += " to " + parts.back().path;
    if (!reporter.Quiet()) reporter.Say(text);
}

}  // namespace

Status SplitFiles(const SplitOptions& options, Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.output.rejects);
    PartFiles parts({options.output.output,
                     &FormOfOutput(options.output),
                     options.output.writing,
                     options.force,
                     options.input.files,
                     {options.output.rejects},
                     options.most});
    const auto divider = MakeDivider(options, parts);
    const ItemSource source = [&](const auto& take) {
        return ReadFiles(options.input, reporter, [&](Item& item) {
            if (item.kind == kItemRecord) divider->Look(item.record);
            return take(item);
        });
    };
    const Status status =
        CarryItems(source, options.input.charset, options.output, *divider,
                   {[&parts] { parts.Complete(); }, [&parts] { parts.Finish(); }}, reporter);
    SayParts(parts, reporter);
    return status;
}

}  // namespace quillory
