#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/controlfields/AdditionalMaterial.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The further materials of a record, in order, owned by the list. Indices count from 0; beyond the
// list they do nothing, and an int result is then 0.
class ZORBY_EXPORT CCFAdditionalMaterialsList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CCFAdditionalMaterialsList() = default;
    CCFAdditionalMaterialsList(const CCFAdditionalMaterialsList&) = delete;
    CCFAdditionalMaterialsList& operator=(const CCFAdditionalMaterialsList&) = delete;

    // A null is not added.
    void Add(std::unique_ptr<CCFAdditionalMaterial> entry);
    // 1.
    int AddEmptyAtEnd();
    void AMAddDuplicateAtEnd(int index);

    void ChangeAdditionalMaterial(int index, MaterialType material, CFType type006, CFType type007,
                                  std::string_view field007, std::string_view field006);
    // The fields, and the name of the material.
    void GetDisplayableAM007006(int index, std::string& field007, std::string& field006,
                                std::string& name) const;

    int Get(int index, CFPart part, std::string& text) const;
    int Set(int index, CFPart part, std::string_view text);
    int GetPartSize(int index, CFPart part) const;
    void Set007Complete(int index, std::string_view field007);

    // Null beyond the list.
    CCFAdditionalMaterial* GetAt(int index) const;
    int GetSize() const { return static_cast<int>(entries_.size()); }

    void DeleteByNumber(int index);
    void RemoveEmpty();
    void RemoveAll() { entries_.clear(); }
    void Empty() { RemoveAll(); }

    void CloneFrom(const CCFAdditionalMaterialsList& other);
    int IsEqualTo(const CCFAdditionalMaterialsList& other) const;
    // On each entry in order.
    void NonMusicalSoundRecordingFixup();
    unsigned GetMARCSize() const;
    void AddToPseudoMARC(CPmarc& record) const;
    // Loading adds behind what the list holds. Any version but 1 adds nothing.
    void Serialize(CArchive& archive) override;

private:
    std::vector<std::unique_ptr<CCFAdditionalMaterial>> entries_;
};

}  // namespace zorby
