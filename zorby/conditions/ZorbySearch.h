#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <string>

namespace zorby {

// What a search is for. Each kind has its own keys in the user's settings.
enum eZORBYSEARCHTYPE : std::int32_t {
    eAddRecords = 0,     // adding records with certain text
    eRemoveRecords = 1,  // removing records with certain text
    eFindAndReplace = 2,
};

// What the user asked to look for, and where. The host searches, with CGeneral::FindWild.
class ZORBY_EXPORT CZorbySearch {
public:
    // Reads the fields from the user's settings if `load` is nonzero, else writes them there. A
    // field that the kind of search has no key for stays as it is, except that find and replace
    // reads "or" for m_strAndOrNot. Any other kind does nothing.
    void ZorbyProfile(int load, eZORBYSEARCHTYPE type);

    // Makes both texts of fields ready for a search. In m_strTree each capital becomes a blank,
    // except those of "HLD". In m_strUser a range of tags becomes its tags, each with a comma after
    // it: "100-102" becomes "100,101,102,".
    void PrepareForSearch();

    std::string m_strTree;  // made from the fields picked in a tree; may hold "HLD"
    std::string m_strUser;  // tags as typed
    int m_bMatchCase = 0;
    int m_bUsesAndOrNot = 0;  // whether there are two texts to look for; not stored
    int m_bWholeWordsOnly = 0;
    std::string m_strLookFor1;
    std::string m_strLookFor2;
    std::string m_strAndOrNot;  // how the two texts combine, such as "or"
    std::string m_strReplaceWith;
};

}  // namespace zorby
