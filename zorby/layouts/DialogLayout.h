#pragma once

#include <zorby/Export.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/layouts/CFControlType.h>

#include <string>

namespace zorby {

// A rectangle on a page, in the units in which the form was designed, from the upper left corner of
// the page.
struct CFDialogBox {
    int top;
    int left;
    int height;
    int width;
};

// One row of a form: an element of the control fields, and where and how a page shows it. A date
// group has all of its place in `labelBox`, and zeros in `controlBox`.
struct ZORBY_EXPORT CCFDialogLayout {
    int page;           // 1 to 4; 0 for a row that is on no page
    const char* label;  // "&" stands before the accelerator, if there is one
    CFPart part;
    CFControlType controlType;
    CFDialogBox labelBox;
    CFDialogBox controlBox;

    constexpr CFPart PartNumber() const { return part; }
    // Null pointers are skipped.
    void GetLocation(int* labelTop, int* labelLeft, int* labelHeight, int* labelWidth,
                     int* controlTop, int* controlLeft, int* controlHeight,
                     int* controlWidth) const;
};

// The rows of one form, which are constant data that lives as long as the program. The full form is
// for a main record. The form of an additional material is a single page without Leader and 008.
class ZORBY_EXPORT CCFDialogLayoutArray {
public:
    // The form of an additional material if `additional` is nonzero, else the full form. It has no
    // rows if the material is unknown or has no such form.
    CCFDialogLayoutArray(MaterialType material, int additional);

    int GetSize() const;
    // Returns null outside the form. In memory, a row of a null label and CFPEndOfTable follows the
    // last one.
    const CCFDialogLayout* GetAt(int index) const;

    // Returns the label of the element without its accelerator. If the material's form doesn't show
    // the element, the label comes from the first form of the same kind that does, in the order of
    // the materials, or is empty if `recursion` is nonzero. If `additional` is 0, MTText and
    // MTUnspecified always give an empty label.
    static std::string GetLabel(MaterialType material, CFPart part, int additional, int recursion);

private:
    const CCFDialogLayout* rows_;
    int size_ = 0;
};

}  // namespace zorby
