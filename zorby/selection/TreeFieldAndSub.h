#pragma once

#include <zorby/Export.h>
#include <zorby/controls/TreeWithCheckBoxes.h>
#include <zorby/format/DisplayOptions.h>
#include <zorby/holdings/InfoAboutHoldingsType.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The tree of MARC fields and subfields and of holdings elements. What is checked in it leaves it
// as one text of paths: a backslash and a name for each item, and a backslash at the end.
//
//   \245T\      a field, with the letter of its group; without one in the group of location fields
//   \245ab\     subfields of a field
//   \HLD258\    an element of holdings
//   \HLD000\    all holdings
//
// "Numbers and codes" holds, besides the range, 001 and 003 where they are allowed, and 900, where
// several holdings systems keep the default call number, if the dictionary knows it.
class ZORBY_EXPORT CTreeFieldAndSub : public CTreeWithCheckBoxes {
public:
    // Subfields are allowed, and 245 $h is not, until this says otherwise.
    void SetOptions(int level2Checkable, int rootCheckable, int singleSelection, int allow245h,
                    int allowSubfields);
    int GetAllow245h() const;

    // Fills the tree anew, and checks what is in a text of paths. `notesOnward` leaves out the
    // groups before "Notes". The names of fields are shown as ZP_DisplayNameOrMARC says.
    void PopulateFieldGroups(std::string_view selection, int showHoldings, int notesOnward,
                             int allow001And003);
    // Gives the paths of what is checked, or an empty text.
    void GetSelected(std::string& text) const;
    // Appends the names of what is checked among an item and its later siblings, and below them.
    // `path` is where the walk is; it is the same afterwards.
    void GetSelNodePath(TreeItem item, std::string& path, std::vector<std::string>& names) const;

    // The parts of PopulateFieldGroups. A letter of 0 is none.
    void PrePopulateSetup() override;
    TreeItem InsertItemFieldGroups(std::string_view name, TreeItem parent);
    // With single selection, `selection` checks the field only if `checksSingle` is not 0.
    TreeItem InsertItemFieldGroupsSingleTag(unsigned tag, char letter, TreeItem parent,
                                            std::string_view selection, int checksSingle);
    // Inserts all fields of a range that the dictionary knows.
    void InsertItemAllFandS(unsigned low, unsigned high, char letter, TreeItem parent,
                            std::string_view selection);
    // Inserts the elements of a system, at level 2 below an item of its own with the system's name.
    void AddHoldingsType(TreeItem parent, int level, EHOLDINGSTYPE type,
                         std::string_view selection);
    void InsertItemHoldingsField(const CInfoAboutHoldingsField& field, TreeItem parent,
                                 std::string_view selection);
    // Inserts the subfields of a field that has none yet.
    void PopulateSubfield(TreeItem item);
    // Does so for the fields of which the selection names subfields.
    void PopulateNeededSubfields();

protected:
    void Populate(TreeItem item) override { PopulateSubfield(item); }

private:
    struct Group;

    void InsertGroup(const Group& group, std::string_view selection, int allow001And003);
    void InsertHoldings(std::string_view selection);
    TreeItem Insert(TreeItem parent, std::string_view text, std::uint32_t data);
    bool IsField(TreeItem item) const;
    std::string ChosenCodes(TreeItem field) const;
    std::string NameOf(TreeItem item) const;
    void AppendSubfields(TreeItem field, std::string& path, std::vector<std::string>& names) const;
    void ShowParentsOfChecked();

    bool allow245h_ = false;
    bool allowSubfields_ = true;
    bool sortsItems_ = false;
    std::string selection_;
    EDISPLAYOPTIONS option_ = EDO_NameAndCode;
};

}  // namespace zorby
