#pragma once

#include <quillory/store/WorkformStore.h>

#include <string>

namespace quillory {

// All that is said of a workform, by its name in UTF-8, that another program has locked.
std::string LockedText(const std::string& name);

// Why a workform can't be saved, as what is said behind its name; empty if it can.

// `name` is in the library's one-byte code. With `force` a workform of the user's is replaced.
std::string HindranceOfName(const std::string& name, bool force, const WorkformStore& store);
// The Leader and fields 006, 007 and 008 of a block must be such as a record may have.
std::string HindranceOfBlock(const std::string& block);

}  // namespace quillory
