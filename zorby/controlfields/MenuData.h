#pragma once

#include <zorby/Export.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>

#include <string>
#include <string_view>

namespace zorby {

struct CodeList;

// The codes that an element of the control fields may take, each with its text, in display order.
// An item is the code, a newline, the text and a newline. All codes of a list are equally long,
// with blanks in place of missing characters. In the combined form of item, a second code follows
// the text. Codes and texts come from the MARC 21 Format for Bibliographic Data, the MARC Code List
// for Languages and the MARC Code List for Countries, in the editions that the tables name. The
// lists are compiled in: pointers into them are valid as long as the program runs, and an object is
// cheap to make and to copy.
class ZORBY_EXPORT CCFMenuData {
public:
    // An element without a list gives an object without a menu.
    explicit CCFMenuData(CFPart part);
    CCFMenuData(const CCFMenuData&) = default;
    CCFMenuData& operator=(const CCFMenuData&) = default;
    virtual ~CCFMenuData();

    CFPart GetPart() const;
    // Returns null without a menu.
    const char* GetMenuTitle() const;
    // Returns all texts, each terminated, and an empty text after the last one. Returns null
    // without a menu.
    const char* GetMenuText() const;
    // Returns 0 without a menu.
    int GetCount() const;

    // Walk through the items, each as it is stored. They return null at the end, without a menu,
    // and if no walk was begun.
    const char* GetTextFirst();
    const char* GetTextNext();

    // Gives the code of the first item with exactly this text; in the combined form of item, both
    // codes. Returns 1, or 0 with `code` untouched.
    int GetCodeFromText(std::string_view text, std::string& code) const;
    // Gives the code of an item. In the combined form of item, an empty second code reads as a
    // newline. Returns 1, or 0 with `code` untouched.
    int GetCodeFromIndex(int index, std::string& code) const;
    // Returns the index, from 0, of the first item that begins with `code`, or -1. So an empty code
    // finds item 0, and a code that is longer than that of the item is compared with the newline
    // and the text as well. In the combined form of item, the first character of `code` must equal
    // the first code and the second character, if there is one, the second code (a newline equals
    // an empty one). Further characters are ignored, and an empty code finds nothing.
    int GetIndexFromCode(std::string_view code) const;
    // Gives an empty text if the code is not in the list.
    void GetTextFromCode(std::string_view code, std::string& text) const;
    std::string GetTextFromCode(std::string_view code) const;

    // Returns whether `part` is in the range of `type`. If `withoutByteZero` is nonzero, the
    // elements at position 0 of the 006 forms are not.
    static bool PartNumberInRange(int withoutByteZero, CFPart part, CFType type);

private:
    CFPart part_;
    const CodeList* menu_;
    const char* const* walk_ = nullptr;  // the item that the walk returned last
};

}  // namespace zorby
