#pragma once

#include <quillory/repair/CodedFields.h>
#include <quillory/repair/MaterialFields.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/elements/MaterialType.h>

#include <string>

namespace quillory {

// One pass of the library's own repair over the fields of a record: each element that the library
// does not allow gets the default that the standard workform of the material has. Fields have the
// lengths of their formats, and any bytes. The Leader must be that of a bibliographic record, and
// the standard workforms must be in force. Keeps its buffers from record to record.
class LibraryRepair {
public:
    // Changes the `bytes` of the fields, and not their lengths.
    void Run(CodedFields& fields);

private:
    // Bytes of fields; one that a record lacks is empty, and stays so.
    struct MainFields {
        std::string& leader;
        std::string& field008;
        std::string& field007;
    };

    void RepairMicroform(std::string& field007);
    void RepairMain();
    void RepairMap(zorby::MaterialType material, const MainFields& fields);
    void Repair(zorby::MaterialType material, zorby::CFType form, const MainFields& fields);
    void Repair(const AdditionalFields& fields);
    std::string& BytesOf(CodedField* field);

    MaterialFields materials_;
    zorby::CCFMainMaterial main_;
    std::string leader_, field006_, field007_, field008_, none_;
};

}  // namespace quillory
