#pragma once

#include <quillory/checks/FieldRules.h>
#include <quillory/checks/Finding.h>
#include <quillory/checks/Policy.h>
#include <quillory/checks/TitleCase.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/Charset.h>

#include <array>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace quillory {

struct CheckerOptions {
    Charset charset = kCharsetAuto;  // of the records; auto: as each says and is
    bool allowLocal = true;          // fields and subfields that the format leaves to libraries
};

// Checks bibliographic records for what stops or mars an export. Policy, dictionary and holdings
// system are those in force when the checker is made. Lengths are bytes in the record's own
// character set, since they are those of the communications format. Of records of another format
// (authority, holdings, classification, community information) only the lengths are checked.
class Checker {
public:
    explicit Checker(CheckerOptions options);

    // Replaces `findings` by those on the record that the policy wants: in the order of the fields,
    // and then what the record lacks.
    void Check(const Record& record, std::vector<Finding>& findings);

    const Policy& GetPolicy() const { return policy_; }

private:
    // What the record has shown so far.
    struct Seen {
        std::string_view field008;
        std::string_view title;    // the first 245 with $a
        std::uint32_t titles = 0;  // 245 $a with text
        std::uint32_t titleOccurrence = 0;
        unsigned mainEntry = 0;        // tag of the first one
        std::uint8_t publication = 0;  // which of $a, $b, $c there are: bits 0, 1, 2
        std::uint8_t extent = 0;
        bool hasNote = false;
        bool hasSubject = false;
        bool hasHoldings = false;
    };
    struct Place {
        std::string_view tag;
        std::uint32_t occurrence = 0;
    };

    void Begin(std::vector<Finding>& findings);
    void CheckField(const zorby::CommFormatField& field, bool isBibliographic);
    std::uint32_t Occurrence(std::string_view tag, unsigned number);
    void CheckNumbered(const zorby::CommFormatField& field, unsigned tag);
    void CheckSubfields(const FieldRule& rule, std::string_view content);
    void CheckSubfieldLengths(std::string_view content);
    void CheckMainEntry(unsigned tag);
    void Note(FieldRole role, std::string_view content);
    void NoteTitle(std::string_view content);
    void CheckWhole(const Record& record);
    void CheckTitleCase(const Record& record);
    void CheckControlFields(const Record& record);
    void CheckSize(const Record& record);
    const FieldRule& RuleFor(const FieldRule& rule, std::string_view content) const;

    // At the field in hand.
    void Add(zorby::E_ERROR_CODE code, char subfield = '\0');
    void AddMissing(zorby::E_ERROR_CODE code, std::string_view tag, char subfield = '\0');
    void AddAt(const Place& place, zorby::E_ERROR_CODE code, char subfield);

    CheckerOptions options_;
    Policy policy_;
    FieldRules rules_;
    TitleCase titleCase_;
    bool asksDictionary_;
    std::vector<std::uint32_t> occurrences_;                // by tag
    std::vector<unsigned> touched_;                         // tags with occurrences
    std::map<std::array<char, 3>, std::uint32_t> oddTags_;  // occurrences of what is no number
    std::vector<Finding>* findings_ = nullptr;
    Seen seen_;
    Place place_;
};

}  // namespace quillory
