#pragma once

#include <quillory/store/Database.h>

#include <span>
#include <string>

namespace quillory {

// The steps that lead to the store's present form. A step that has been released is never changed.
std::span<const char* const> SchemaSteps();

// The file of the user's store, in the folder of HomeFolder.
std::string StorePath();

// Opens or makes a store.
Database OpenStore(const std::string& path = StorePath());

}  // namespace quillory
