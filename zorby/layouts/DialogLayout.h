#pragma once

#include <zorby/Export.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/layouts/CFControlType.h>

#include <string>

namespace zorby {

// A rectangle on a page, in the units of the form's design, from the upper left corner of the page.
struct CFDialogBox {
    int top;
    int left;
    int height;
    int width;
};

// One row of a form: an element of the control fields, and how and where a page shows it. A date
// group has its whole place in `labelBox`, and zeros in `controlBox`.
struct ZORBY_EXPORT CCFDialogLayout {
    int page;           // from 1 to 4; 0 for a row on no page
    const char* label;  // "&" stands before the accelerator, if there is one
    CFPart part;
    CFControlType controlType;
    CFDialogBox labelBox;
    CFDialogBox controlBox;

    constexpr CFPart PartNumber() const { return part; }
    // Null pointers are passed over.
    void GetLocation(int* labelTop, int* labelLeft, int* labelHeight, int* labelWidth,
                     int* controlTop, int* controlLeft, int* controlHeight,
                     int* controlWidth) const;
};

// The rows of one form: constant data that lives as long as the program. The full form serves a
// main record; the one of an additional material is a single page without Leader and 008.
class ZORBY_EXPORT CCFDialogLayoutArray {
public:
    // The form of an additional material if `additional` is nonzero, else the full form. Without
    // any rows if the material is unknown or has no such form.
    CCFDialogLayoutArray(MaterialType material, int additional);

    int GetSize() const { return size_; }
    // Null outside the form. Behind the last row stands one of null and CFPEndOfTable.
    const CCFDialogLayout* GetAt(int index) const;

    // The label of the element without its accelerator. If the material's form doesn't show the
    // element, the first form of that kind that does, in the order of the materials; with
    // `recursion` nonzero, empty. Always empty for a material that is only ever an additional one
    // for want of a 006 form, if `additional` is 0.
    static std::string GetLabel(MaterialType material, CFPart part, int additional, int recursion);

private:
    const CCFDialogLayout* rows_;
    int size_ = 0;
};

}  // namespace zorby
