#pragma once

#include <quillory/edits/EditSession.h>
#include <quillory/faults/Fault.h>
#include <quillory/holdings/HoldingsSystem.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What a system knows of a copy.
struct CopyElement {
    zorby::EHOLDINGSID id = {};
    std::string name;  // all texts are in UTF-8
    std::string help;
    Place place;  // of its subfield; the field for a part of one
};

// The copies in a record that a person edits, in the form of a holdings system with elements. The
// steps give the record as it is to be, and change nothing themselves. What is no element of the
// system stays with its copy as it is; it comes after the elements when the copy is written anew.
class RecordCopies {
public:
    // Several values of one element stand in one text, with this between them.
    static constexpr std::string_view kBetweenValues = " ¦ ";

    struct Copy {
        std::vector<std::string> texts;   // by element
        std::string kept;                 // what is no element, such as "852 $z Gift"
        std::vector<std::size_t> fields;  // their indices in the record
    };

    explicit RecordCopies(HoldingsSystem system);

    const HoldingsSystem& System() const { return system_; }
    const std::vector<CopyElement>& Elements() const { return elements_; }
    // The index of the element that is the bar code; nothing if the system has none.
    std::optional<std::size_t> BarCode() const;

    std::vector<Copy> CopiesOf(const EditSession::State& record) const;

    // A further copy: a new one with no more than this bar code, or one like another, without what
    // only one of them can have.
    EditSession::State WithNew(const EditSession::State& record, std::string_view barCode) const;
    EditSession::State WithOneLike(const EditSession::State& record, std::size_t copy,
                                   std::string_view barCode) const;
    EditSession::State Without(const EditSession::State& record, std::size_t copy) const;
    // A copy without any text is none: its fields go.
    struct Outcome {
        EditSession::State record;
        std::optional<Fault> fault;  // the value can't stand there, and nothing changes
    };
    Outcome WithText(const EditSession::State& record, std::size_t copy, std::size_t element,
                     std::string_view text) const;

private:
    HoldingsSystem system_;
    std::vector<CopyElement> elements_;
};

}  // namespace quillory
