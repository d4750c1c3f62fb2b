#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/checking/ErrorCode.h>
#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/text/StringAndUINTArraySorted.h>
#include <zorby/workforms/Template.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorby {

// The standard workforms, one or more for each material, in the order of their file; the first that
// matches is the answer. All operations are static and act on the one list in force; without it
// they answer as for an empty list. Unguarded: it belongs to the host's user-interface thread.
class ZORBY_EXPORT CTemplateList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    // The workform that stands in for any other.
    static constexpr const char* kFallbackName = "Book (not atlas or songbook)";

    // For building a list that Serialize then stores. GetAt gives null outside the list.
    void Add(std::unique_ptr<CTemplate> workform) { templates_.push_back(std::move(workform)); }
    int GetSize() const { return static_cast<int>(templates_.size()); }
    const CTemplate* GetAt(int index) const;

    // Puts the list of the file `folder` + "zorby.ttm" in force and gives 1. If the file can't be
    // opened, or holds no workform "Book (not atlas or songbook)", tells the user and gives 0; a
    // damaged one throws CArchiveException. In these cases no list is in force then.
    static int InitializeTemplateList(std::string_view folder);
    // No pointer to a standard workform may be used any more.
    static void DestroyTemplateList();
    // The list in force, or null.
    static const CTemplateList* TheOneAndOnly();

    // The caller deletes the result if IsSavedTemplate is nonzero (see TemplateHolder). A block
    // that can't be read throws CArchiveException.
    static CTemplate* GetTemplate(int id);
    static CTemplate* GetTemplate(MaterialType material);
    // The 007 type doesn't count for books, continuing resources and mixed materials; notated music
    // may also be a microform or electronic.
    static CTemplate* GetTemplate(CFType type006, CFType type007);
    // "Book (not atlas or songbook)" if there is none of that name.
    static CTemplate* GetStandardTemplate(const char* name);
    // What an import of the material should use: a workform of the user that the profile puts in
    // the place of the standard one, if it still exists.
    static CTemplate* GetImportTemplate(MaterialType material);

    // Appends the names of all workforms, or those that are equal to `name` unless it is null.
    static void GetTemplateNames(std::vector<std::string>& names, const char* name);
    static void GetTemplateNames(CStringAndUINTArraySorted& namesAndIDs);
    // Which workform of the user stands for a standard one in imports; 0 for none. IDs below 100
    // are not kept.
    static int GetZorbyTemplateMapProfileInt(std::string_view name);
    static void WriteZorbyTemplateMapProfileInt(std::string_view name, const int& id);

    // Default control fields, from the first workform of the material or the types. Empty where
    // there is none.
    static void GetMaterialTypeName(MaterialType material, std::string& name);
    // `form` is the form of item (008/23, 006/06).
    static void Get006007TypesForMaterialType(MaterialType material, char form, CFType& type006,
                                              CFType& type007);
    static std::string Default007(MaterialType material, char form);
    // The 007 of a microform with this specific material designation; blank if `existing`, a 006 or
    // an 008 of 40 characters, has a blank form of item. `existing` may be null.
    static std::string Default007From007Byte1(char designation, const char* existing);
    static std::string Default007(E_ERROR_CODE error);
    static std::string DefaultLdr(CFType type006, CFType type007);
    static std::string Default006(MaterialType material);
    // Position 0 is left as the 008 has it, for the caller to set.
    static std::string Default006(CFType type006, CFType type007);
    static std::string Default006Additional(MaterialType material);
    // Dated today, by the local time.
    static std::string Default008(MaterialType material);
    static std::string Default008(CFType type006, CFType type007);

private:
    std::vector<std::unique_ptr<CTemplate>> templates_;
};

}  // namespace zorby
