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

// The standard workforms, one or more for each material, in the order of their file. The first one
// that matches is the answer. The static operations use the one list in force, and answer as if it
// were empty while there is none. No lock guards the list: it belongs to the host's user-interface
// thread.
class ZORBY_EXPORT CTemplateList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    // The workform that is used if another one is missing.
    static constexpr const char* kFallbackName = "Book (not atlas or songbook)";

    // These build a list, which Serialize then stores. GetAt returns null outside the list.
    void Add(std::unique_ptr<CTemplate> workform);
    int GetSize() const;
    const CTemplate* GetAt(int index) const;

    // Loads the list from the file `folder` + "zorby.ttm", puts it in force and returns 1. If the
    // file can't be opened, or has no workform "Book (not atlas or songbook)", tells the user and
    // returns 0. A damaged file throws CArchiveException. In these cases no list is in force
    // afterwards.
    static int InitializeTemplateList(std::string_view folder);
    // Pointers to standard workforms are no longer valid after this.
    static void DestroyTemplateList();
    // Returns the list in force, or null.
    static const CTemplateList* TheOneAndOnly();

    // If IsSavedTemplate of the result is nonzero, the caller must delete the result (see
    // TemplateHolder). A block that can't be read throws CArchiveException.
    static CTemplate* GetTemplate(int id);
    static CTemplate* GetTemplate(MaterialType material);
    // The 007 type is ignored for books, continuing resources and mixed materials. Notated music
    // may also be a microform or electronic.
    static CTemplate* GetTemplate(CFType type006, CFType type007);
    // Returns "Book (not atlas or songbook)" if there is no workform of that name.
    static CTemplate* GetStandardTemplate(const char* name);
    // Returns the workform that an import of the material should use: one of the user, if the
    // profile puts it in the place of the standard one and it still exists.
    static CTemplate* GetImportTemplate(MaterialType material);

    // Appends the names of all workforms or, unless `name` is null, those that are equal to `name`.
    static void GetTemplateNames(std::vector<std::string>& names, const char* name);
    static void GetTemplateNames(CStringAndUINTArraySorted& namesAndIDs);
    // The ID of the user's workform that imports use in the place of a standard one, or 0. IDs
    // below 100 are not stored.
    static int GetZorbyTemplateMapProfileInt(std::string_view name);
    static void WriteZorbyTemplateMapProfileInt(std::string_view name, const int& id);

    // Default control fields, from the first workform of the material or of the types. They are
    // empty if there is no such workform.
    static void GetMaterialTypeName(MaterialType material, std::string& name);
    // `form` is the form of item (008/23, 006/06).
    static void Get006007TypesForMaterialType(MaterialType material, char form, CFType& type006,
                                              CFType& type007);
    static std::string Default007(MaterialType material, char form);
    // Returns the 007 of a microform with this specific material designation. It is blank if
    // `existing`, a 006 or an 008 of 40 characters, has a blank form of item. `existing` may be
    // null.
    static std::string Default007From007Byte1(char designation, const char* existing);
    static std::string Default007(E_ERROR_CODE error);
    static std::string DefaultLdr(CFType type006, CFType type007);
    static std::string Default006(MaterialType material);
    // Position 0 comes from the 008, and the caller must set it.
    static std::string Default006(CFType type006, CFType type007);
    static std::string Default006Additional(MaterialType material);
    // The date in the 008 is today's, by the local time.
    static std::string Default008(MaterialType material);
    static std::string Default008(CFType type006, CFType type007);

private:
    std::vector<std::unique_ptr<CTemplate>> templates_;
};

}  // namespace zorby
