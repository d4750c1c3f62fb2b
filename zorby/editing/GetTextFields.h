#pragma once

#include <zorby/Export.h>
#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/holdings/HoldingsID.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zorby {

// A place in a text that is filled in per record, with the text of a subfield or of an element of a
// copy. In an edit control it stands as its description, such as "<<Field: Title, Subfield: $a>>".
struct ZORBY_EXPORT GetTextField {
    bool isHolding = false;
    EHOLDINGSID holdingsID = {};  // 0 if it isn't an element of a copy
    std::string tagText;          // the item, in the forms of COnlyWhenState
    std::string stateText;        // the condition, packed
    std::string description;
    int position = 0;          // of the description in the displayed text, in bytes
    COnlyWhenState state;      // the condition, for processing
    std::string subfieldText;  // the value for the current record

    int Length() const { return static_cast<int>(description.size()); }
    int End() const { return position + Length(); }
};

// The get-text fields of a text in the order of their positions. Positions are in the displayed
// text, where the descriptions are.
class ZORBY_EXPORT GetTextFields {
public:
    using Fields = std::vector<GetTextField>;

    const Fields& All() const { return fields_; }
    Fields& All() { return fields_; }
    int Count() const;
    // Null if there is no field with this number.
    GetTextField* At(int index) {
        return 0 <= index && index < Count() ? &fields_[static_cast<std::size_t>(index)] : nullptr;
    }
    void Clear();
    // Adds a field whose description is in the text at its position.
    void Add(GetTextField field);

    // Returns whether a position is inside a description, not before or after it, and gives where
    // that begins and ends, and the number of the field unless `index` is null.
    bool IsInUserDefinedGetTextField(const int& position, int& start, int& end, int* index) const;
    // Moves all fields from a position on.
    void UpdateGetTextInfo(const int& delta, const int& position);
    // Removes the fields between two positions. Of two that follow each other it removes only the
    // first, so a caller that wants all of them calls it again.
    void DeleteSelectedGetTextInfo(const int& start, const int& end);

    // Follows a change of the displayed text, in which `added` bytes took the place of `removed`
    // ones. A field that lost part of its description is a field no longer.
    void TextReplaced(int from, int removed, int added);

    // The field whose description ends or begins at a position, or null.
    const GetTextField* EndingAt(int position) const;
    const GetTextField* BeginningAt(int position) const;
    // The last field that begins in a stretch of the text, or null.
    const GetTextField* LastBeginningIn(int start, int end) const;

    // Puts the descriptions into a text, in the order of the fields, each at its position. A
    // position outside the text or inside another description is set to the nearest possible one.
    std::string WithDescriptions(std::string text);
    // Takes the descriptions out of the displayed text.
    std::string WithoutDescriptions(std::string text) const;
    // Puts the values of the fields into the text without descriptions.
    std::string WithValues(std::string text) const;

private:
    Fields fields_;
};

}  // namespace zorby
