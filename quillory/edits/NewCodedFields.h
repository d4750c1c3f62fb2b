#pragma once

#include <quillory/coded/CodeLists.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A coded field that a person can add to a record, with the kind of item that it is for.
struct NewCodedField {
    std::string name;     // "Videocassette (VHS)", in UTF-8
    std::string content;  // as in the standard workform of that material, else fill characters
};

// At least one for each form of 006 and each category of 007. The workforms have to be in force.
std::vector<NewCodedField> New006Fields(const CodeLists& lists);
std::vector<NewCodedField> New007Fields(const CodeLists& lists);
// An 008 entered today, of the material that the Leader names, or of books.
std::string New008Field(std::string_view leader);

// What a field of this form, 006 or 007, begins as, with its letter in front.
std::string NewContentOf(zorby::CFType form, char letter);

}  // namespace quillory
