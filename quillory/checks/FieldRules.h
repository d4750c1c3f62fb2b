#pragma once

#include <quillory/checks/ByteSet.h>
#include <quillory/checks/CodeSet.h>
#include <quillory/places/Tag.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillory {

// The part that a field plays in the rules about a whole record.
enum FieldRole : std::uint8_t {
    kRoleOther,
    kRoleMainEntry,    // 100, 110, 111, 130
    kRoleTitle,        // 245
    kRolePublication,  // 260, 264
    kRoleExtent,       // 300
    kRoleNote,         // 500 to 599
    kRoleSubject,      // 600 to 699
    kRoleLinked,       // 880
};
inline constexpr std::size_t kRoles = kRoleLinked + 1;

// The values of an indicator; none where nothing is known of it.
struct IndicatorRule {
    ByteSet current;
    ByteSet obsolete;
    ByteSet allowed;  // what is current, or all
    ByteSet sourced;  // those that leave the source, or the like, to $2

    bool Allows(char value) const { return allowed.Has(value); }
};

// What is allowed in the fields of a tag.
struct FieldRule {
    bool isKnown = false;
    bool isObsolete = false;
    bool isRepeatable = true;
    bool hasAnyCodes = false;  // any subfield, any number of times
    bool isHoldings = false;
    bool mayNameSource = false;  // an indicator may leave the source to $2
    FieldRole role = kRoleOther;
    ByteSet codes;
    ByteSet repeatableCodes;
    ByteSet obsoleteCodes;
    // Letters and digits that are allowed and not obsolete, and those of them that may be repeated.
    CodeSet usual;
    CodeSet usualRepeatable;
    std::array<IndicatorRule, 2> indicators;

    // Whether nothing can be wrong with a field that has these subfields, the second of them more
    // than once. If not, each has to be looked at.
    bool IsUsual(CodeSet has, CodeSet repeats) const {
        return hasAnyCodes || (has.IsWithin(usual) && repeats.IsWithin(usualRepeatable));
    }
};

// Whether the name of an indicator's value says that a source, or the like, stands in $2.
bool NamesSource(std::string_view name);

// The format's dictionary and the holdings system in force when the object is made, by tag.
class FieldRules {
public:
    // With `allowLocal`, fields and subfields that the format leaves to libraries are known: tags
    // with a 9, except 490; subfield 9; graphic symbols as codes.
    explicit FieldRules(bool allowLocal);
    // Those of another format: a rule for each tag below kTags, without what is left to libraries.
    FieldRules(std::vector<FieldRule> rules, bool allowLocal);

    // Nothing is known of kNoTag.
    const FieldRule& Of(unsigned tag) const { return rules_[tag]; }

private:
    void AddDictionary();
    void AddIndicators(unsigned tag);
    void AddHoldings();
    void AddRoles();
    void AllowAlternateGraphics();
    void AllowLocal();
    void AllowAny(unsigned tag);
    void Finish();

    std::vector<FieldRule> rules_;
};

}  // namespace quillory
