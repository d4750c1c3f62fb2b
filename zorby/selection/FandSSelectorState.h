#pragma once

#include <string>

namespace zorby {

// What a CFandSSelector allows, shows and starts with. Flags are 0 or 1.
struct CFandSSelectorState {
    int showAllSelected = 0;   // offers "All" and "Selected"
    int allowWholeField = 0;   // a tag without a subfield is a valid selection
    int allowFieldGroups = 0;  // groups of fields can be checked in the tree
    int singleSelection = 0;   // only one item, from the tree or from the edit box
    int allow001And003 = 0;
    int allowBelow010 = 0;
    int allowSubfields = 0;
    int allow245h = 0;
    std::string title;
    std::string listLabel;   // above the tree
    std::string examples;    // below the edit box; lines end in LF
    int allSelected = 0;     // starts with "All"
    int selectFromList = 0;  // the start with singleSelection
    int selectFromText = 0;
    int treeValue = 0;           // shows holdings in the tree
    std::string treeSelection;   // paths of CTreeFieldAndSub
    std::string typedSelection;  // tags and subfields, as the user types them
};

}  // namespace zorby
