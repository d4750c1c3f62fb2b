#include <quillory/exchange/Output.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/PartFiles.h>
#include <quillory/text/SearchText.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <filesystem>

namespace quillory {
namespace {

constexpr std::string_view kSign = "{}";
constexpr std::size_t kMostOpen = 32;
constexpr std::size_t kLongestPart = 100;  // bytes of what stands for the sign
constexpr std::size_t kDigits = 4;

bool IsPlain(char c) {
    return ('0' <= c && c <= '9') || ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || c == '-' ||
           c == '.' || c == '_';
}

std::string Numbered(std::size_t number) {
    std::string text = std::to_string(number);
    return std::string(kDigits - std::min(kDigits, text.size()), '0') + text;
}

}  // namespace

std::string SafeFileName(std::string_view utf8) {
    constexpr char32_t kFirstLetterBeyondAscii = 0xA1;
    std::string name;
    while (!utf8.empty()) {
        const Utf8Char c = DecodeUtf8(utf8);
        if (name.size() + c.size > kLongestPart) break;
        const bool isKept = c.valid && (c.size == 1 ? IsPlain(utf8.front())
                                                    : c.codePoint >= kFirstLetterBeyondAscii);
        if (isKept) {
            name += utf8.substr(0, c.size);
        } else {
            name += '_';
        }
        utf8.remove_prefix(c.size);
    }
    if (name.starts_with('.')) name.front() = '_';
    return name;
}

struct PartFiles::Part {
    Part(const std::string& path, const PartFilesOptions& options)
        : summary{path},
          output(path, OutputRole::kMain, options.force),
          writer(options.form->makeWriter(output, options.writing)) {}

    Summary summary;
    std::uint64_t bytes = 0;  // of its records, where sizes are asked for
    Output output;
    std::unique_ptr<RecordWriter> writer;
};

// Writes into memory, to find out how many bytes something has.
class PartFiles::Scale {
public:
    explicit Scale(const PartFilesOptions& options) : options_(options), frame_(Weigh(nullptr)) {}

    // Of what a form puts around records.
    std::uint64_t Frame() const { return frame_; }
    std::uint64_t BytesOf(const Record& record) { return Weigh(&record) - frame_; }

private:
    std::uint64_t Weigh(const Record* record) {
        const auto writer = options_.form->makeWriter(output_, options_.writing);
        text_.clear();
        if (record != nullptr) writer->Write(*record, unused_);
        writer->Finish();
        output_.Flush();
        return text_.size();
    }

    const PartFilesOptions& options_;
    std::string text_;
    Output output_{Output::kToMemory, text_};
    Losses unused_;
    std::uint64_t frame_;
};

PartFiles::PartFiles(PartFilesOptions options) : options_(std::move(options)) {
    if (options_.pattern.find(kSign) == std::string::npos) {
        throw UsageError("\"" + options_.pattern +
                         "\" names one file alone; {} stands for what tells the files apart, as in "
                         "part-{}.mrc");
    }
}

PartFiles::~PartFiles() = default;

// A file system may take capital and small letters for the same.
std::string PartFiles::PathFor(const std::string& part) {
    const std::string safe = SafeFileName(part);
    for (unsigned count = 1;; ++count) {
        std::string path = options_.pattern;
        path.replace(path.find(kSign), kSign.size(),
                     count == 1 ? safe : safe + "-" + std::to_string(count));
        if (names_.insert(Folded(path)).second) return path;
    }
}

PartFiles::Part& PartFiles::Make(const std::string& path) {
    if (parts_.size() == options_.most) {
        throw UsageError("there would be more than " + std::to_string(options_.most) +
                         " files; --most allows more");
    }
    if (!options_.force && std::filesystem::exists(path)) {
        throw UsageError(path + ": is there already; --force replaces it");
    }
    CheckNotAnInput(options_.inputs, path);
    for (const std::string& other : options_.notAPart) {
        CheckNotTheSame(other, path, "the records and the rejects");
    }
    return parts_.emplace_back(path, options_);
}

void PartFiles::RestAnother(const Part& part) {
    if (open_.size() < kMostOpen) return;
    const auto other =
        std::ranges::find_if(open_, [&part](const Part* one) { return one != &part; });
    (*other)->output.Rest();
    open_.erase(other);
}

void PartFiles::Choose(const std::string& part) {
    auto known = byName_.find(part);
    if (known == byName_.end()) known = byName_.emplace(part, &Make(PathFor(part))).first;
    chosen_ = known->second;
}

void PartFiles::ChooseNext() {
    chosen_ = &Make(PathFor(Numbered(parts_.size() + 1)));
}

std::uint64_t PartFiles::SizeWith(const Record& record) {
    if (!scale_) scale_ = std::make_unique<Scale>(options_);
    if (chosen_ == nullptr || chosen_->summary.records == 0) return 0;
    return scale_->Frame() + chosen_->bytes + scale_->BytesOf(record);
}

WriteResult PartFiles::Write(const Record& record, Losses& losses) {
    Part& part = *chosen_;
    const auto used = std::ranges::find(open_, &part);
    if (used != open_.end()) open_.erase(used);
    RestAnother(part);
    open_.push_back(&part);
    if (scale_) part.bytes += scale_->BytesOf(record);
    WriteResult result = part.writer->Write(record, losses);
    if (result.written) ++part.summary.records;
    return result;
}

void PartFiles::Complete() {
    for (Part& part : parts_) {
        part.writer->Finish();
        part.output.Complete();
    }
}

void PartFiles::Finish() {
    for (Part& part : parts_) part.output.Finish();
}

std::vector<PartFiles::Summary> PartFiles::Parts() const {
    std::vector<Summary> parts;
    for (const Part& part : parts_) parts.push_back(part.summary);
    return parts;
}

}  // namespace quillory
