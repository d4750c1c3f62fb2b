#pragma once

#include <quillory/cataloging/Draft.h>

#include <string>
#include <vector>

namespace quillory {

// What a person is asked for a new record: a subfield that has no text yet. Texts are UTF-8.
struct Question {
    Place place;
    std::string field;     // its name
    std::string subfield;  // its name
};

// With `all`, every subfield of the workform; without, those that it gives priority. In the order
// in which a cataloger fills them. The dictionaries have to be in force.
std::vector<Question> QuestionsOf(const Pattern& pattern, const Draft& draft, bool all);

// Whether a new record is asked for this subfield.
bool IsAsked(const zorby::CTemplate& workform, const Place& subfield);

// The workform's rules, reminders and examples for a subfield, in lines; empty if it has none.
std::string HelpFor(const Place& subfield, const Pattern& pattern);

}  // namespace quillory
