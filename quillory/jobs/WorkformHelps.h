#pragma once

#include <zorby/workforms/Template.h>

#include <map>
#include <string>
#include <tuple>

namespace quillory {

// What a workform does for a subfield when a record is made. Texts are UTF-8.
struct SubfieldHelp {
    bool isAsked = false;
    std::string rules;  // lines, as are the texts that follow
    std::string reminder;
    std::string examples;

    friend bool operator==(const SubfieldHelp&, const SubfieldHelp&) = default;
};

struct SubfieldOfTag {
    unsigned tag = 0;
    char code = '\0';

    friend bool operator==(const SubfieldOfTag&, const SubfieldOfTag&) = default;
    friend bool operator<(const SubfieldOfTag& a, const SubfieldOfTag& b) {
        return std::tie(a.tag, a.code) < std::tie(b.tag, b.code);
    }
};
using SubfieldHelps = std::map<SubfieldOfTag, SubfieldHelp>;

SubfieldHelp HelpOf(const SubfieldOfTag& subfield, const zorby::CTemplate& workform);

// Gives a workform what another has of its own to say of fields, subfields and indicators, except
// for these. Not what a base says: a workform that rests on it says that, too, but it asks one base
// only.
void CopyHelps(const zorby::CTemplate& from, const SubfieldHelps& except,
               zorby::CTemplate& workform);
// Gives it these, in the place of what `before` says. Throws UsageError for a text that a workform
// can't hold.
void AddHelps(const SubfieldHelps& helps, const zorby::CTemplate& before,
              zorby::CTemplate& workform);

}  // namespace quillory
