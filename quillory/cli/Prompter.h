#pragma once

#include <quillory/cataloging/Questions.h>

#include <istream>
#include <ostream>
#include <string>

namespace quillory {

// Asks a person for what a new record lacks.
class Prompter {
public:
    // With `all`, asks for every subfield of the workform; without, for those that it gives
    // priority.
    Prompter(std::istream& answers, std::ostream& questions, bool all)
        : answers_(answers), questions_(questions), all_(all) {}

    // Puts the answers into the draft, until there are no more questions or no more answers.
    void Fill(const Pattern& pattern, Draft& draft);

private:
    // False if there are no more answers.
    bool Ask(const Pattern& pattern, const Question& question, std::string& answer);
    void Help(const Pattern& pattern, const Place& gap);
    bool Take(Draft& draft, const Place& gap, const std::string& answer);

    std::istream& answers_;
    std::ostream& questions_;
    bool all_;
};

}  // namespace quillory
