#pragma once

#include <zorby/Export.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>

#include <string>
#include <string_view>

namespace zorby {

struct CodeList;

// The codes that an element of the control fields may take, each with its text, in display order.
// An item is the code, a newline, the text, a newline; every code of a list is equally long, with
// blanks where it stands for fewer characters. The combined form of item has a second code behind
// the text. Codes and texts: MARC 21 Format for Bibliographic Data, MARC Code List for Languages,
// MARC Code List for Countries, as of their day. The lists are compiled in: what the pointers point
// to lives as long as the program, and an object is cheap to make and to copy.
class ZORBY_EXPORT CCFMenuData {
public:
    // An element without a list gives an object without a menu.
    explicit CCFMenuData(CFPart part);
    CCFMenuData(const CCFMenuData&) = default;
    CCFMenuData& operator=(const CCFMenuData&) = default;
    virtual ~CCFMenuData();

    CFPart GetPart() const { return part_; }
    // Null without a menu.
    const char* GetMenuTitle() const;
    // All texts, each terminated, and an empty one behind the last. Null without a menu.
    const char* GetMenuText() const;
    // 0 without a menu.
    int GetCount() const;

    // Walk the items as they stand. Null at the end, without a menu, or with no walk under way.
    const char* GetTextFirst();
    const char* GetTextNext();

    // The code of the first item with exactly this text, in the combined form of item both codes:
    // 1, or 0 with `code` untouched.
    int GetCodeFromText(std::string_view text, std::string& code) const;
    // In the combined form of item an empty second code reads as a newline. 1, or 0 with `code`
    // untouched.
    int GetCodeFromIndex(int index, std::string& code) const;
    // The first item that begins with `code`, from 0, or -1. So an empty code finds item 0, and a
    // code that is longer than the item's goes on into its newline and text. In the combined form
    // of item the first character must equal the code, a second one, if given, the second code (a
    // newline equals an empty one), and more are passed over; an empty code finds nothing.
    int GetIndexFromCode(std::string_view code) const;
    // Empty if the code is not in the list.
    void GetTextFromCode(std::string_view code, std::string& text) const;
    std::string GetTextFromCode(std::string_view code) const;

    // Whether `part` lies in the range of `type`; with `withoutByteZero` nonzero the elements in
    // position 0 of the 006 forms do not.
    static bool PartNumberInRange(int withoutByteZero, CFPart part, CFType type);

private:
    CFPart part_;
    const CodeList* menu_;
    const char* const* walk_ = nullptr;  // the item that the walk gave last
};

}  // namespace zorby
