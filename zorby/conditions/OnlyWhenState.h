#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/conditions/ContainType.h>
#include <zorby/holdings/HoldingsID.h>
#include <zorby/ini/KeysNValues.h>

#include <string>
#include <string_view>

namespace zorby {

// One test of a condition: what is looked at, and what is asked of its text.
struct ZORBY_EXPORT OnlyWhenTest {
    bool anySubfield = true;  // looks at any subfield, or at any element of a copy
    char subfield = 0;
    EHOLDINGSID holdingsID = {};  // 0 for none
    CONTAIN_TYPE containType = CT_CONTAINS;
    std::string containsText;  // may have wildcards, as CGeneral::FindWild reads them
    bool matchCase = false;
};

// The condition under which an operation applies: one test, or two that are joined by AND or OR. A
// condition is attached to a field, a subfield or an element of a copy, comes from a text and goes
// into one, and can be shown as a sentence. Texts are in the Qm code.
//
// A condition is kept as a packed text of CKeysNValues, with flags as 0 or 1 and a subfield as the
// decimal number of its code. A value can't keep two backslashes side by side.
class ZORBY_EXPORT COnlyWhenState : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Sets the defaults, except that the two texts of the tests, tagText, extraText and the keys
    // stay as they are.
    void SetDefaults();
    // Sets what stands around the sentence, "<<" and ">>" at first. An empty text changes nothing.
    void SetDelimiters(std::string_view open, std::string_view close);
    // Takes the tag and the subfield from tagText, or the element from "\HLD250\". Of the three,
    // those that tagText does not speak of stay, except that the subfield becomes 0.
    void ParseTag();

    // Reads a packed text. A "Tag" in it wins over `tag`. An absent key leaves what SetDefaults
    // leaves. A text that can't be read as a number counts as 0, and a flag is set by 1 alone.
    void InitializeOnlyWhenState(std::string tag, std::string_view text);
    // Gives the packed text. Keys that this class doesn't know come back as they were read.
    void SaveState(std::string& text);

    // Gives the sentence, such as "Only When: Title subfield is not empty". If the operation always
    // applies, gives "Always" or, without `showAlways`, an empty text. Names of subfields are as
    // the user's settings want them.
    void MakeLongString(std::string& text, int withDelimiters, int showAlways,
                        int withPrefix) const;

    // Returns whether the condition holds, from the results of its tests.
    bool Combined(bool firstHolds, bool secondHolds) const;

    bool onlyWhen = false;  // if not set, the operation always applies
    OnlyWhenTest first;
    bool advanced = false;  // the second test counts too
    OnlyWhenTest second;
    bool bothConditions = true;  // both tests must hold; else one of them is enough

    // What the condition is attached to: a tag ("245"), a tag with a subfield ("245a"), or the path
    // of an item in a tree ("\245\", "\245a\", "\HLD250\").
    std::string tagText;
    int parsedTag = 0;
    char parsedSubfield = 0;
    EHOLDINGSID parsedHoldingsID = {};

    std::string extraText;  // for the host
    CKeysNValues keys;      // the packed text as it was read, with SaveState's changes

private:
    std::string openDelimiter_ = "<<";
    std::string closeDelimiter_ = ">>";
};

}  // namespace zorby
