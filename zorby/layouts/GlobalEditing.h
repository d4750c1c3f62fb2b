#pragma once

#include <zorby/Export.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/layouts/DialogLayout.h>

#include <functional>

namespace zorby {

class CTemplate;

// A target of global edits: an element as the full form of a material shows it, and the standard
// workform of that material. The entry owns neither.
class ZORBY_EXPORT CCFGlobalEditingEntry {
public:
    // The row must outlive the entry.
    CCFGlobalEditingEntry(const CCFDialogLayout& row, const CTemplate* workform)
        : row_(&row), workform_(workform) {}

    const CCFDialogLayout& GetRow() const;
    // Returns null if the material has no standard workform.
    const CTemplate* GetTemplate() const;

    // Returns a number below 0, 0 or above 0 if the first entry belongs before, beside or after the
    // second. Elements without a menu come first, in order of their numbers. The others are in
    // order of their menus, and those of one menu are equal. Without a menu, a number that is 1 to
    // 3 above the other counts as equal, and one that is 1 to 3 below it as lower, so this is not a
    // strict order.
    static int CCFGlobalEditingEntryCompare(const CCFGlobalEditingEntry& first,
                                            const CCFGlobalEditingEntry& second);

private:
    const CCFDialogLayout* row_;
    const CTemplate* workform_;
};

// The list of all targets of global edits. The program has only one, and each operation holds its
// lock while it runs. While there is no list, all operations answer as if it were empty.
class ZORBY_EXPORT CCFGlobalEditingEntryArray {
public:
    // Returns the standard workform of a material, or null. It must not use the list.
    using TemplateSource = std::function<const CTemplate*(MaterialType)>;

    // Makes the list anew from the standard workforms, sorted by CCFGlobalEditingEntryCompare. It
    // has the elements of all full forms, the date group once for each material, and the type of
    // sound recording for the materials of musical sound. Returns 0, or 1 if memory runs out, and
    // then there is no list.
    static int InitializeYourself();
    // Does the same with workforms from elsewhere.
    static int InitializeFrom(const TemplateSource& standardTemplate);
    // Does nothing if there is no list.
    static void DestroyYourself();

    static int GetSize();
    // Returns null outside the list. The list owns the entry until the list is destroyed or made
    // anew.
    static const CCFGlobalEditingEntry* GetAt(int index);
    // Returns the index of this very entry, or -1.
    static int GetIndex(const CCFGlobalEditingEntry* entry);

    // Appends an entry. Returns 1, or 0 if there is no list. The row must outlive the list.
    static int AddEntry(const CCFDialogLayout& row, const CTemplate* workform);
    // Appends the rows of a form, except those for type of date and literary text, which the list
    // has as date group and type of sound recording. Returns 1, or 0 if there is no list.
    static int AddDL(const CCFDialogLayoutArray& form, const CTemplate* workform);
};

}  // namespace zorby
