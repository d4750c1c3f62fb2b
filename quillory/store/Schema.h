#pragma once

#include <quillory/store/Database.h>

#include <optional>
#include <span>
#include <string>

namespace quillory {

// The steps that lead from an empty database to the store's present form. A step that has been
// released is never changed.
std::span<const char* const> SchemaSteps();

// The file of the user's store, in the folder of HomeFolder.
std::string StorePath();

// Opens or makes a store.
Database OpenStore(const std::string& path = StorePath());

// Opens the store if it is there and can be used. `obstacle` says why it can't be used; it is empty
// if there is no store. Throws FileError for a damaged store.
std::optional<Database> OpenStoreIfThere(std::string& obstacle,
                                         const std::string& path = StorePath());

}  // namespace quillory
