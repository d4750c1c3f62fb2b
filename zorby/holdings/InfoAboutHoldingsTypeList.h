#pragma once

#include <zorby/Export.h>
#include <zorby/holdings/InfoAboutHoldingsType.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The dictionary of holdings systems. Programs ask through static operations, which act on the one
// dictionary in force and answer as if it were empty while there is none. Lookups give the first
// match in the order of the file, or null. Unguarded: it belongs to the host's user-interface
// thread.
class ZORBY_EXPORT CInfoAboutHoldingsTypeList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Loading adds behind what the list holds.
    void Serialize(CArchive& archive) override;

    // Puts the dictionary of "zorby.hld" in force and gives 1. `directory` ends in its separator.
    // If the file can't be opened, tells the user and gives 0; a damaged one throws
    // CArchiveException. In both cases no dictionary is in force then, not even one that was
    // before.
    static int CreateTheOneAndOnly(std::string_view directory);
    // Safe without a dictionary.
    static void DestroyYourself();
    // The dictionary in force, or null.
    static const CInfoAboutHoldingsTypeList* TheOneAndOnly();

    // The one walk of the dictionary; null at the end.
    static const CInfoAboutHoldingsType* GetFirst();
    static const CInfoAboutHoldingsType* GetNext();
    // By the present or a former name, byte for byte.
    static const CInfoAboutHoldingsType* FindFromName(std::string_view name);
    static const CInfoAboutHoldingsType* FindFromType(EHOLDINGSTYPE type);
    // The element in the first of the types that share it.
    static const CInfoAboutHoldingsField* FindFromID(EHOLDINGSID id);
    // The type whose family of elements the number belongs to, the first of a pair; HT_NONE for a
    // number of no family. It needs no dictionary.
    static EHOLDINGSTYPE GetHoldingsTypeFromHoldingsID(EHOLDINGSID id);
    // Whether the element belongs to the type in force (CHoldingsSelector) or to the other type of
    // its pair.
    static bool IsSameHoldingsType(EHOLDINGSID id);
    // Appends the names and numbers of all elements of the first type that has this one.
    static void GetMenuItemsFromID(EHOLDINGSID id, std::vector<std::string>& names,
                                   std::vector<EHOLDINGSID>& ids);

    // For building a dictionary that Serialize then stores.
    void AddType(std::unique_ptr<CInfoAboutHoldingsType> type);
    int GetSize() const { return static_cast<int>(types_.size()); }
    // Null outside the list.
    const CInfoAboutHoldingsType* GetAt(int index) const;

private:
    static const CInfoAboutHoldingsType* FirstWith(EHOLDINGSID id);

    std::vector<std::unique_ptr<CInfoAboutHoldingsType>> types_;
    std::size_t next_ = 0;
};

}  // namespace zorby
