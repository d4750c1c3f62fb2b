#pragma once

#include <quillory/coded/CodeLists.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

enum class ElementState {
    Coded,      // has its codes
    Free,       // a value that is no code
    Misfit,     // a value that the element can't have
    Undefined,  // positions that the format leaves undefined, holding something
    Undecoded,  // bytes whose form is not known
    Missing,    // positions behind the end of the field
    Excess,     // bytes behind the last position of the format
};

struct DecodedElement {
    Place place;
    std::string name;
    std::string value;  // the bytes as they are
    ElementState state = ElementState::Coded;
    std::vector<CodeMeaning> codes;  // of a coded element
    std::string text;                // what a value that is no code says; may be empty
};

struct DecodedField {
    Place place;         // of the leader, or of the field by its tag
    zorby::CFType form;  // CF006None or CF007None if the form is not known
    std::vector<DecodedElement> elements;
};

// Spells the coded control fields out. Fields may have any length and any bytes: what can't be
// decoded is there as it is, and the values of the elements put one behind the other give all of
// the field but blanks and fill characters in undefined positions.
class Decoder {
public:
    // Keeps the reference.
    explicit Decoder(const CodeLists& lists) : lists_(lists) {}

    DecodedField Leader(std::string_view leader) const;
    DecodedField Field006(std::string_view content) const;
    DecodedField Field007(std::string_view content) const;
    // The leader says by which material the field is to be read.
    DecodedField Field008(std::string_view content, std::string_view leader) const;

private:
    DecodedField WithForm(Place place, zorby::CFType form, std::string_view content) const;
    // The elements that begin between two positions of the form.
    void AddElements(zorby::CFType form, int first, int last, std::string_view content,
                     DecodedField& field) const;
    void AddElement(const Element& element, std::string_view content, DecodedField& field) const;

    const CodeLists& lists_;
};

}  // namespace quillory
