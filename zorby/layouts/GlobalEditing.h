#pragma once

#include <zorby/Export.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/layouts/DialogLayout.h>

#include <functional>

namespace zorby {

class CTemplate;

// A target of global edits: an element, as the full form of a material shows it, and the standard
// workform of that material. It owns neither.
class ZORBY_EXPORT CCFGlobalEditingEntry {
public:
    // The row must outlive the entry.
    CCFGlobalEditingEntry(const CCFDialogLayout& row, const CTemplate* workform)
        : row_(&row), workform_(workform) {}

    const CCFDialogLayout& GetRow() const { return *row_; }
    // Null if the material has no standard workform.
    const CTemplate* GetTemplate() const { return workform_; }

    // Below 0, 0 or above 0 as the first belongs before, beside or behind the second. Elements
    // without a menu come first, by their numbers; the others by their menus, so that those of one
    // menu are equal. Without a menu, a number above the other by 1 to 3 counts as equal, and one
    // below it by 1 to 3 as lower, so this is no strict order.
    static int CCFGlobalEditingEntryCompare(const CCFGlobalEditingEntry& first,
                                            const CCFGlobalEditingEntry& second);

private:
    const CCFDialogLayout* row_;
    const CTemplate* workform_;
};

// The list of all targets of global edits. There is one for the whole program, and each operation
// holds its lock for as long as it runs. While there is no list, all answer as if it were empty.
class ZORBY_EXPORT CCFGlobalEditingEntryArray {
public:
    // The standard workform of a material, or null. It must not use the list.
    using TemplateSource = std::function<const CTemplate*(MaterialType)>;

    // Makes the list anew from the standard workforms: the elements of all full forms, the date
    // group as one target a material, and the type of sound recording for the materials of musical
    // sound, sorted by CCFGlobalEditingEntryCompare. 0, or 1 with no list if memory doesn't
    // suffice.
    static int InitializeYourself();
    // The same with workforms from elsewhere.
    static int InitializeFrom(const TemplateSource& standardTemplate);
    // Safe without a list.
    static void DestroyYourself();

    static int GetSize();
    // Null outside the list. The list owns the entry, until it is destroyed or made anew.
    static const CCFGlobalEditingEntry* GetAt(int index);
    // Where this very entry stands, or -1.
    static int GetIndex(const CCFGlobalEditingEntry* entry);

    // Appends an entry: 1, or 0 while there is no list. The row must outlive the list.
    static int AddEntry(const CCFDialogLayout& row, const CTemplate* workform);
    // Appends the rows of a form, but for type of date and literary text, which stand in the list
    // as date group and type of sound recording: 1, or 0 while there is no list.
    static int AddDL(const CCFDialogLayoutArray& form, const CTemplate* workform);
};

}  // namespace zorby
