#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Output.h>

#include <string>
#include <string_view>

namespace quillory {

// Puts records of files of one form together into a file of that form. The bytes of each record
// stay as they are, and the first file gives what stands around the records.
class RecordCopier {
public:
    explicit RecordCopier(Output& output) : output_(output) {}

    // Throws UsageError for a file of another form than those before.
    void BeginFile(const Form& form, const std::string& name);
    // Takes note of an item, before it is copied or not.
    void Pass(const Item& item);
    void PassRecord();
    void EndFile();

    // A record to be copied, now or later.
    struct Copy {
        std::string_view lead;  // what is between it and the record before
        std::string_view bytes;
    };
    // Of the record that was passed, whose bytes these are. Throws UsageError for one that can't
    // stand in the first file.
    Copy CopyOf(std::string_view bytes) const;
    void Write(const Copy& copy);
    // Whether the end of the first file must be known to write what comes after the records.
    bool NeedsEnd() const { return isEnclosed_; }
    void Finish();

private:
    void BeginRecords();
    void WriteOpening();

    Output& output_;
    const Form* form_ = nullptr;
    std::string file_;
    std::string frame_;        // since the last item
    std::string fileOpening_;  // what the file in hand has before its first record
    bool inRecords_ = false;
    std::string opening_;  // of the first file with a record
    std::string closing_;
    bool hasOpening_ = false;
    bool hasClosing_ = false;
    bool isEnclosed_ = false;  // the first file has more than blanks around its records
    std::string lead_;
    bool hasWritten_ = false;
    char last_ = '\n';
};

}  // namespace quillory
