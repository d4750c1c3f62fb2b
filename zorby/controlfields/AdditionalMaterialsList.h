#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/controlfields/AdditionalMaterial.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The additional materials of a record, in order. The list owns them. Indices count from 0. An
// index outside the list does nothing, and an int result is then 0.
class ZORBY_EXPORT CCFAdditionalMaterialsList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CCFAdditionalMaterialsList() = default;
    CCFAdditionalMaterialsList(const CCFAdditionalMaterialsList&) = delete;
    CCFAdditionalMaterialsList& operator=(const CCFAdditionalMaterialsList&) = delete;

    // Null is not added.
    void Add(std::unique_ptr<CCFAdditionalMaterial> entry);
    // Returns 1.
    int AddEmptyAtEnd();
    void AMAddDuplicateAtEnd(int index);

    void ChangeAdditionalMaterial(int index, MaterialType material, CFType type006, CFType type007,
                                  std::string_view field007, std::string_view field006);
    // Gives both fields and the name of the material.
    void GetDisplayableAM007006(int index, std::string& field007, std::string& field006,
                                std::string& name) const;

    int Get(int index, CFPart part, std::string& text) const;
    int Set(int index, CFPart part, std::string_view text);
    int GetPartSize(int index, CFPart part) const;
    void Set007Complete(int index, std::string_view field007);

    // Returns null outside the list.
    CCFAdditionalMaterial* GetAt(int index) const;
    int GetSize() const;

    void DeleteByNumber(int index);
    void RemoveEmpty();
    void RemoveAll();
    void Empty() { RemoveAll(); }

    void CloneFrom(const CCFAdditionalMaterialsList& other);
    int IsEqualTo(const CCFAdditionalMaterialsList& other) const;
    // Does this for each entry in order.
    void NonMusicalSoundRecordingFixup();
    unsigned GetMARCSize() const;
    void AddToPseudoMARC(CPmarc& record) const;
    // Loading appends to what the list holds. A version other than 1 appends nothing.
    void Serialize(CArchive& archive) override;

private:
    std::vector<std::unique_ptr<CCFAdditionalMaterial>> entries_;
};

}  // namespace zorby
