#pragma once

#include <quillory/repair/CodedFields.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/elements/MaterialType.h>

#include <string>
#include <vector>

namespace quillory {

// Has the library repair the fields of a record, each in its `after`, which has the length of its
// format, and any bytes. The Leader must be that of a bibliographic record, and the standard
// workforms in force. The Leader and the 008 make the main material with the first 007 that goes
// with them. Each further 006 is an additional material with the first 007 left that goes with it;
// so is each 007 left after that. The 007 of a microform is repaired as that of a book in this
// microform. Keeps its buffers from record to record.
class LibraryRepair {
public:
    void Run(CodedFields& fields);

private:
    struct MainFields {
        std::string& leader;
        std::string& field008;  // empty if there is none
        std::string& field007;
    };
    // A further 006, a 007, or both.
    struct Additional {
        CodedField* field006 = nullptr;
        CodedField* field007 = nullptr;

        bool GoesWith(zorby::CFType category) const;
    };

    void AddFurther(CodedField& field007);
    void RepairMap(zorby::MaterialType material, const MainFields& fields);
    void RepairMain(zorby::MaterialType material, zorby::CFType form, const MainFields& fields);
    void RepairMicroform(std::string& field007);
    void Repair(const Additional& additional);

    zorby::CCFMainMaterial main_;
    std::vector<Additional> additional_;
    std::string leader_, field006_, field007_, field008_, none_;
};

}  // namespace quillory
