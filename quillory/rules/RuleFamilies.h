#pragma once

#include <quillory/checks/RecordInHand.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/rules/RemarkSink.h>

#include <memory>
#include <string_view>

namespace quillory {

// The checks of rules, by families. Each looks at a bibliographic record that was taken apart, and
// some also at one of another format.

// Fields, indicators and subfields against the rules of the record's format. Without `allowsLocal`,
// what the format leaves to libraries is undefined, too.
void CheckStructure(const RecordInHand& record, bool allowsLocal, RemarkSink& remarks);
// Fields that a record of any format lacks; with `needsSource` also 040. `positionsOf008` says what
// 008 has in the format, as in "40 positions".
void CheckNeeds(const RecordInHand& record, std::string_view positionsOf008, bool needsSource,
                RemarkSink& remarks);
// ISBN, ISSN and others, and addresses.
void CheckNumbers(const RecordInHand& record, RemarkSink& remarks);
// The same in the fields that mean the same in all formats: 020, 022, 024 and 856.
void CheckSharedNumbers(const RecordInHand& record, RemarkSink& remarks);
// Nonfiling characters, added entries and series.
void CheckTitleFields(const RecordInHand& record, RemarkSink& remarks);
// The marks of ISBD, where Leader/18 promises them.
void CheckPunctuation(const RecordInHand& record, RemarkSink& remarks);
// Fields in other scripts and their partners, in any format.
void CheckLinks(const RecordInHand& record, RemarkSink& remarks);
// Dates of 008 against their type and against the imprint.
void CheckDates(const RecordInHand& record, RemarkSink& remarks);
// Notes on bibliographies and indexes against 008.
void CheckNotes(const RecordInHand& record, RemarkSink& remarks);
// Codes of areas, periods, instruments and voices: 043, 045, 048.
void CheckCodeFields(const RecordInHand& record, RemarkSink& remarks);
// Content, media and carrier against each other, the Leader, 007, 008 and 300.
void CheckCarriers(const RecordInHand& record, RemarkSink& remarks);
// Terms and codes of 336 to 338.
void CheckMediaTypes(const RecordInHand& record, RemarkSink& remarks);

// The Leader, 006, 007, 008 and dates, and fields of codes.
class CodedRules {
public:
    // Keeps the reference.
    explicit CodedRules(const CodeLists& lists);
    ~CodedRules();
    void Check(const RecordInHand& record, RemarkSink& remarks);

private:
    class Work;
    std::unique_ptr<Work> work_;
};

}  // namespace quillory
