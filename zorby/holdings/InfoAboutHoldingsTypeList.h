#pragma once

#include <zorby/Export.h>
#include <zorby/holdings/InfoAboutHoldingsType.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The dictionary of holdings systems. The static operations use the one dictionary in force, and
// answer as if it were empty while there is none. Lookups return the first match in the order of
// the file, or null. No lock guards the dictionary: it belongs to the host's user-interface thread.
class ZORBY_EXPORT CInfoAboutHoldingsTypeList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Loading appends to what the list holds.
    void Serialize(CArchive& archive) override;

    // Loads the dictionary from "zorby.hld" in `directory`, which ends in a separator, puts it in
    // force and returns 1. If the file can't be opened, tells the user and returns 0. A damaged
    // file throws CArchiveException. In both cases no dictionary is in force afterwards, not even
    // an earlier one.
    static int CreateTheOneAndOnly(std::string_view directory);
    // Does nothing if there is no dictionary.
    static void DestroyYourself();
    // Returns the dictionary in force, or null.
    static const CInfoAboutHoldingsTypeList* TheOneAndOnly();

    // Walk through the dictionary. There is only one walk; it returns null at the end.
    static const CInfoAboutHoldingsType* GetFirst();
    static const CInfoAboutHoldingsType* GetNext();
    // Finds the present name or a former one, compared byte for byte.
    static const CInfoAboutHoldingsType* FindFromName(std::string_view name);
    static const CInfoAboutHoldingsType* FindFromType(EHOLDINGSTYPE type);
    // Returns the element as the first system that has it describes it.
    static const CInfoAboutHoldingsField* FindFromID(EHOLDINGSID id);
    // Returns the system that has the number in its range, the first of a pair that shares it, or
    // HT_NONE if no system has it. This needs no dictionary.
    static EHOLDINGSTYPE GetHoldingsTypeFromHoldingsID(EHOLDINGSID id);
    // Returns whether the element belongs to the system in force (CHoldingsSelector) or to the
    // other system of its pair.
    static bool IsSameHoldingsType(EHOLDINGSID id);
    // Appends the names and numbers of all elements of the first system that has this element.
    static void GetMenuItemsFromID(EHOLDINGSID id, std::vector<std::string>& names,
                                   std::vector<EHOLDINGSID>& ids);

    // These build a dictionary, which Serialize then stores.
    void AddType(std::unique_ptr<CInfoAboutHoldingsType> type);
    int GetSize() const;
    // Returns null outside the list.
    const CInfoAboutHoldingsType* GetAt(int index) const;

private:
    static const CInfoAboutHoldingsType* FirstWith(EHOLDINGSID id);

    std::vector<std::unique_ptr<CInfoAboutHoldingsType>> types_;
    std::size_t next_ = 0;
};

}  // namespace zorby
