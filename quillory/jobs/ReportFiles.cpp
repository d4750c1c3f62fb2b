#include <quillory/exchange/Output.h>
#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/CheckLine.h>
#include <quillory/jobs/CheckedFiles.h>
#include <quillory/jobs/GivenNumber.h>
#include <quillory/jobs/RepeatedNumbers.h>
#include <quillory/jobs/ReportFiles.h>
#include <quillory/jobs/ResultFile.h>
#include <quillory/rules/StandardNumbers.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

namespace quillory {
namespace {

RuleId RuleOn(const Place& place) {
    return place.Number() == 1 ? RuleId::ControlNumberRepeated : RuleId::NumberRepeated;
}

// Reads all results twice: first for the numbers of records, then for all else.
class ReportRun {
public:
    ReportRun(const ReportFilesOptions& options, CheckReport& report, Reporter& reporter)
        : failsOn_(options.failsOn),
          report_(report),
          reporter_(reporter),
          numbers_(ParseByteSize("--memory", options.memory)) {
        for (const std::string& file : options.files) results_.emplace_back(file);
        if (results_.empty()) results_.emplace_back("-");
    }

    Status Run() {
        for (in_ = 0; in_ < results_.size(); ++in_) {
            results_[in_].ReadFirst(
                [this](std::string_view text, const TextLines& lines) { NoteNumbers(text, lines); },
                piped_);
        }
        files_.BeginAgain();
        in_ = 0;
        index_ = 0;
        numbers_.ForEach([this](const RepeatedNumbers::Match& match) {
            if (!matches_.empty() && matches_.front().index != match.index) TakeMatched();
            matches_.push_back(match);
        });
        if (!matches_.empty()) TakeMatched();
        while (TakeNext()) {
        }
        reporter_.EndFile();
        report_.Finish(totals_);
        return status_;
    }

    // Findings, if there was any so far, or damage.
    Status Result() const { return status_; }

private:
    // Blank lines are none.
    static bool IsBlank(std::string_view text) { return Trimmed(text).empty(); }

    [[noreturn]] static void Refuse(const TextLines& lines) {
        throw FileError(lines.Place() + " is no result of `quillory check --format jsonl`");
    }

    // What came through a pipe is known by the name of its results, if there are others.
    void NameFile() {
        const ResultFile& results = results_[in_];
        if (results_.size() > 1 && line_.file == kStandardInput) line_.file = results.Name();
        file_ = files_.Note(results, line_.file);
    }

    void NoteNumbers(std::string_view text, const TextLines& lines) {
        if (IsBlank(text)) return;
        if (!reader_.ReadNumbers(text, line_)) Refuse(lines);
        NameFile();
        std::uint64_t which = 0;
        std::string key;
        for (const std::string& given : line_.numbers) {
            const auto number = ParseGivenNumber(given);
            if (!number) Refuse(lines);
            const std::string_view tag = number->place.Tag();
            key.assign(tag).append(tag == "020" ? IsbnKey(number->number)
                                                : std::string(number->number));
            numbers_.Add(key, {index_, file_, line_.item.number}, which++);
        }
        ++index_;
    }

    // All lines up to the one of these matches, and that.
    void TakeMatched() {
        while (index_ <= matches_.front().index && TakeNext()) {
        }
        matches_.clear();
    }

    // False after the last line.
    bool TakeNext() {
        std::string_view text;
        while (in_ < results_.size()) {
            if (lines_ == nullptr) lines_ = &results_[in_].Begin();
            if (lines_->Next(text)) {
                if (IsBlank(text)) continue;
                if (!reader_.Read(text, line_)) Refuse(*lines_);
                TakeLine();
                ++index_;
                return true;
            }
            lines_ = nullptr;
            results_[in_++].End();
        }
        return false;
    }

    void TakeLine() {
        NameFile();
        if (file_ != reported_) {
            reporter_.EndFile();
            reporter_.BeginFile(files_.Name(file_));
            reported_ = file_;
        }
        if (line_.item.kind == kItemRecord) {
            TakeRecord();
        } else {
            TakeDamage();
        }
    }

    void TakeDamage() {
        status_ = kStatusFindings;
        if (line_.item.kind == kItemDamaged) ++totals_.damaged;
        reporter_.Say(line_.item, "damage", [this] { return line_.reason; });
        report_.TakeDamage(line_.item, line_.reason);
    }

    void TakeRecord() {
        CompareNumbers();
        PassOverUnimarc();
        const auto heaviest = CountFindings();
        const bool isSound = line_.words.fault.empty();
        if (!isSound || (heaviest && *heaviest <= failsOn_)) status_ = kStatusFindings;
        const CheckedRecord record{line_.item, line_.remarks, heaviest, given_, &line_.words};
        totals_.Count(record);
        report_.TakeRecord(record);
    }

    std::optional<Severity> CountFindings() {
        totals_.findings.BeginRecord();
        for (const Remark& remark : line_.remarks) {
            totals_.findings.Count(*remark.rule, remark.severity, remark.place);
        }
        return totals_.findings.Heaviest();
    }

    // One record in UNIMARC is enough to say so of a file, of which there may be several parts.
    void PassOverUnimarc() {
        const auto isOnUnimarc = [](const Remark& remark) {
            return remark.rule->id == RuleId::Unimarc;
        };
        if (std::ranges::none_of(line_.remarks, isOnUnimarc)) return;
        if (unimarcFile_ == file_) line_.remarks.clear();
        unimarcFile_ = file_;
    }

    // What the check of one file said of its numbers gives way to what all files say.
    void CompareNumbers() {
        given_.clear();
        if (line_.numbers.empty()) return;
        std::erase_if(line_.remarks,
                      [](const Remark& remark) { return IsAboutNumbers(remark.rule->id); });
        GiveNumbers();
        std::ptrdiff_t added = 0;
        for (std::size_t which = 0; which < given_.size(); ++which) {
            const NumberMet& met = given_[which];
            if (const auto* first = FirstWith(which)) {
                const auto at = static_cast<std::ptrdiff_t>(met.at) + added++;
                line_.remarks.insert(line_.remarks.begin() + at, RemarkOn(met, *first));
            }
        }
    }

    void GiveNumbers() {
        const std::size_t end = line_.remarks.size();
        for (const std::string& text : line_.numbers) {
            const auto given = ParseGivenNumber(text);
            if (!given) Refuse(*lines_);
            const RuleId rule = RuleOn(given->place);
            const auto severity = line_.severities.find(rule);
            given_.push_back(
                {rule, '\0', given->number, given->place,
                 rule == RuleId::NumberRepeated ? std::min(line_.numbersAt, end) : end,
                 severity == line_.severities.end() ? RuleOf(rule).severity : severity->second});
        }
    }

    const RepeatedNumbers::Where* FirstWith(std::size_t which) const {
        for (const RepeatedNumbers::Match& match : matches_) {
            if (match.index == index_ && match.which == which) return &match.first;
        }
        return nullptr;
    }

    Remark RemarkOn(const NumberMet& met, const RepeatedNumbers::Where& first) const {
        std::string where = std::to_string(first.number);
        if (first.file != file_) where += " of " + files_.Name(first.file);
        Remark remark{&RuleOf(met.rule), met.severity, met.place};
        if (met.rule == RuleId::ControlNumberRepeated) {
            remark.found = std::move(where);
        } else {
            remark.found = met.number;
            remark.allowed = std::move(where);
        }
        return remark;
    }

    Severity failsOn_;
    CheckReport& report_;
    Reporter& reporter_;
    PipedText piped_;
    std::deque<ResultFile> results_;
    RepeatedNumbers numbers_;
    CheckedFiles files_;
    CheckLineReader reader_;
    CheckLine line_;
    std::size_t in_ = 0;                     // of the results, those in hand
    std::uint64_t index_ = 0;                // of the line in hand, among all
    std::uint64_t file_ = 0;                 // that it is about
    std::optional<std::uint64_t> reported_;  // the last file that was
    TextLines* lines_ = nullptr;
    std::vector<RepeatedNumbers::Match> matches_;  // of one line
    std::vector<NumberMet> given_;                 // numbers of the record in hand
    CheckTotals totals_;
    std::optional<std::uint64_t> unimarcFile_;  // in which that was said
    Status status_ = kStatusWell;
};

}  // namespace

Status ReportFiles(const ReportFilesOptions& options, CheckReport& report, Reporter& reporter) {
    ReportRun run(options, report, reporter);
    try {
        return run.Run();
    } catch (const ClosedPipe&) {
        return run.Result();
    }
}

}  // namespace quillory
