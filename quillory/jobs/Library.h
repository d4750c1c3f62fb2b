#pragma once

#include <quillory/coded/CodeLists.h>

#include <string>

namespace quillory {

// Puts the user's settings in force: the profile files in HomeFolder. Files that are not there are
// empty, and so is all if the environment names no such folder.
void LoadSettings();

// Writes a key of the profile. Throws FileError if it can't be written.
void WriteSetting(int key, const std::string& value);

// Puts the dictionaries of the format and of holdings in force, with the user-defined fields of the
// profile and those of `userDefined`. The data files are looked for in QUILLORY_DATA, or else
// beside the program and in share/quillory of its installation or build. False if one is not there,
// which the user has been told; throws FileError for a damaged one, and for a list without a field
// that can be read.
bool LoadDictionaries(const std::string& userDefined);

// Puts the standard workforms in force, from zorby.ttm, which lies beside the other data files.
// False if it isn't there or lacks the workform that stands in for others, which the user has been
// told; throws FileError for a damaged one.
bool LoadWorkforms();

// The codes of the control fields, with what marc21-codes.tsv, which lies beside the other data
// files, says of them. Throws FileError.
CodeLists LoadCodeLists();

}  // namespace quillory
