#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/RecordCopier.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// What belongs to the file; other filler does not.
bool IsFrame(const Item& item) {
    if (item.kind != kItemFrame) return false;
    return !item.fault || item.fault->code == FaultCode::kFileHeader ||
           item.fault->code == FaultCode::kByteOrderMark;
}

std::string_view WithoutBlanksAtEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

std::string_view BlanksAtEnd(std::string_view text) {
    return text.substr(text.find_last_not_of(kWhiteSpace) + 1);
}

// Whether a file goes on, after its records, with the end of what was begun before them.
bool IsEnclosing(std::string_view opening) {
    if (opening.starts_with(kByteOrderMark)) opening.remove_prefix(kByteOrderMark.size());
    return opening.starts_with('[') || opening.starts_with('<');
}

bool IsArray(std::string_view opening) {
    return WithoutBlanksAtEnd(opening).ends_with('[');
}

// Whether there is an element, and not only what may stand before the root.
bool HasElement(std::string_view xml) {
    for (std::size_t at = xml.find('<'); at + 1 < xml.size(); at = xml.find('<', at + 1)) {
        if (xml[at + 1] != '?' && xml[at + 1] != '!') return true;
    }
    return false;
}

}  // namespace

void RecordCopier::BeginFile(const Form& form, const std::string& name) {
    if (form_ != nullptr && form_ != &form) {
        throw UsageError(
            name + ": is in " + std::string(form.words) + ", and " + file_ + " in " +
            std::string(form_->words) +
            "; files to pick from are of one form, `quillory convert --where` takes any");
    }
    form_ = &form;
    file_ = name;
    frame_.clear();
    inRecords_ = false;
}

void RecordCopier::BeginRecords() {
    inRecords_ = true;
    fileOpening_ = frame_;
    if (hasOpening_) return;
    hasOpening_ = true;
    opening_ = frame_;
    isEnclosed_ = IsEnclosing(opening_);
}

void RecordCopier::Pass(const Item& item) {
    if (IsFrame(item)) {
        frame_ += item.bytes;
    } else {
        PassRecord();
    }
}

void RecordCopier::PassRecord() {
    if (!inRecords_) BeginRecords();
    lead_.clear();
    if (isEnclosed_) lead_ = (IsArray(opening_) ? "," : "") + std::string(BlanksAtEnd(frame_));
    frame_.clear();
}

void RecordCopier::EndFile() {
    if (inRecords_ && !hasClosing_) {
        hasClosing_ = true;
        closing_ = frame_;
    }
}

RecordCopier::Copy RecordCopier::CopyOf(std::string_view bytes) const {
    const bool counts = isEnclosed_ || IsEnclosing(fileOpening_);
    if (counts && WithoutBlanksAtEnd(fileOpening_) != WithoutBlanksAtEnd(opening_)) {
        throw UsageError(file_ +
                         ": begins otherwise than the file before it, so that its records "
                         "can't stand in one file unchanged; `quillory convert --where` takes any");
    }
    return {lead_, bytes};
}

void RecordCopier::WriteOpening() {
    output_.Write(hasWritten_ ? std::string_view() : opening_);
}

void RecordCopier::Write(const Copy& copy) {
    if (!hasWritten_) {
        WriteOpening();
    } else {
        if (copy.bytes.starts_with('<') && !HasElement(opening_)) {
            throw UsageError(file_ +
                             ": its root is a record, and no other can stand beside it; "
                             "`quillory convert --where` takes any");
        }
        const bool hasLines = form_ != &Forms().front() && !isEnclosed_;
        if (hasLines && last_ != '\n') output_.Write("\n");
        output_.Write(copy.lead);
    }
    output_.Write(copy.bytes);
    if (!copy.bytes.empty()) last_ = copy.bytes.back();
    hasWritten_ = true;
}

void RecordCopier::Finish() {
    if (!isEnclosed_) return;
    WriteOpening();
    output_.Write(closing_);
}

}  // namespace quillory
