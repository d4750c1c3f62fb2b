#pragma once

#include <quillory/coded/CodeLists.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

enum class ElementState {
    Coded,      // a value of codes
    Free,       // a value such as a date, which is not a code
    Misfit,     // a value that the element can't have
    Undefined,  // positions that the format leaves undefined, holding something
    Undecoded,  // bytes whose form is not known
    Missing,    // positions after the end of the field
    Excess,     // bytes after the last position of the format
};

struct DecodedElement {
    Place place;
    std::string name;
    std::string value;  // the bytes as they are
    ElementState state = ElementState::Coded;
    std::vector<CodeMeaning> codes;  // of a coded element
    std::string text;                // the meaning of a value that is not a code; may be empty
};

struct DecodedField {
    Place place;         // of the leader, or of the field by its tag
    zorby::CFType form;  // CF006None or CF007None if the form is not known
    std::vector<DecodedElement> elements;
};

// Spells the coded control fields out. Fields may have any length and any bytes. What can't be
// decoded comes as it is: the values of all elements, one after the other, make up the whole field,
// except blanks and fill characters in undefined positions.
class Decoder {
public:
    // Keeps the reference.
    explicit Decoder(const CodeLists& lists) : lists_(lists) {}

    DecodedField Leader(std::string_view leader) const;
    DecodedField Field006(std::string_view content) const;
    DecodedField Field007(std::string_view content) const;
    // The leader names the material by which the field is read.
    DecodedField Field008(std::string_view content, std::string_view leader) const;
    // Of a record of another format than the bibliographic one: what all formats share is spelled
    // out, and the rest comes as it is.
    DecodedField SharedOfLeader(std::string_view leader) const;
    DecodedField SharedOf008(std::string_view content, std::string_view leader) const;

private:
    DecodedField WithForm(Place place, zorby::CFType form, std::string_view content) const;
    // The elements that begin between two positions of the form.
    void AddElements(zorby::CFType form, int first, int last, std::string_view content,
                     DecodedField& field) const;
    void AddElement(const Element& element, std::string_view content, DecodedField& field) const;

    const CodeLists& lists_;
};

}  // namespace quillory
