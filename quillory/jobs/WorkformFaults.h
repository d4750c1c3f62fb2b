#pragma once

#include <quillory/faults/Errors.h>
#include <quillory/store/WorkformStore.h>
#include <zorby/workforms/Template.h>

#include <string>

namespace quillory {

// Why a workform can't be saved, if it can't. What was found is its name. Arguments are in the
// library's one-byte code.

// With `force` a workform of the user's is replaced.
Fault FaultOfName(const std::string& name, bool force, const WorkformStore& store);

// The leader and the fields 006, 007 and 008 must be such as a record can have.
Fault FaultOfControlFields(const zorby::CTemplate& workform);
// Of a workform as a block.
Fault FaultOfControlFields(const std::string& block);

// Another program has locked the workform.
Fault FaultOfLock(const std::string& name);

}  // namespace quillory
