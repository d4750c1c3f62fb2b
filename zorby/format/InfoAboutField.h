#pragma once

#include <zorby/Export.h>
#include <zorby/format/InfoAboutList.h>
#include <zorby/text/TagArray.h>

#include <memory>
#include <string>
#include <string_view>

namespace zorby {

// A MARC field: its tag as a number (008 is 8), its name in the Qm code, and its flags.
class ZORBY_EXPORT CInfoAboutField : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Stores everything except the user-defined flag, which is 0 after loading.
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, std::string_view name, int repeatable, int mandatory,
                int userDefined);

    unsigned GetTag() const;
    const std::string& GetName() const;
    void GetName(std::string& name) const;
    // In this order: nonzero if the field may repeat, if a record must have it, and if it was added
    // at run time.
    int Repeatable() const;
    int Mandatory() const;
    int IsUserDefined() const;

private:
    unsigned tag_ = 0;
    std::string name_;
    int repeatable_ = 0;
    int mandatory_ = 0;
    int userDefined_ = 0;
};

class ZORBY_EXPORT CInfoAboutFieldList : public InfoAboutList<CInfoAboutField> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first field of the tag, or null.
    const CInfoAboutField* Find(unsigned tag) const;
    void AddField(unsigned tag, std::string_view name, int repeatable, int mandatory,
                  int userDefined);
    // Returns the tags from `low` to `high`, both included, in the order of the list.
    std::unique_ptr<CTagArray> AllTags(unsigned low, unsigned high) const;
    // Deletes the records whose user-defined flag is set.
    void RemoveUserDefined();
};

}  // namespace zorby
