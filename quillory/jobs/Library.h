#pragma once

#include <quillory/coded/CodeLists.h>
#include <zorby/ini/INIProfile.h>

#include <string>

namespace quillory {

// What the library works with: the user's settings and the data files. The data files are looked
// for in QUILLORY_DATA, or else beside the program and in share/quillory of its installation or
// build.

// The path of one of them.
std::string DataFile(const std::string& name);

// Puts the user's settings in force: the profile files in HomeFolder. Files that are not there are
// empty, and so is all if the environment names no such folder. Throws FileError for a file that is
// there and can't be read, since a policy in it would be passed over.
void LoadSettings();

// Writes a key of the profile. Throws FileError if it can't be written.
void WriteSetting(int key, const std::string& value);

// A setting of this program alone, in a section of its own. The texts are in the one-byte code.
std::string ReadOwnSetting(const char* key);
void WriteOwnSetting(const char* key, const std::string& value);

// Puts the settings back as they are now when the object goes, whatever a job has changed of them
// in memory: a policy, or a holdings system, is in force for one job.
class SettingsKeeper {
public:
    SettingsKeeper();
    ~SettingsKeeper();
    SettingsKeeper(const SettingsKeeper&) = delete;
    SettingsKeeper& operator=(const SettingsKeeper&) = delete;

private:
    zorby::CINIProfile settings_;
};

// Puts the dictionaries of the format and of holdings in force, with the user-defined fields of the
// profile and those of `userDefined`, such as "590ab 591-595". Throws FileError for a data file
// that can't be opened or is damaged, and UsageError for a list without a field that can be read.
void LoadDictionaries(const std::string& userDefined = {});

// The dictionary of the format has the user-defined fields of the settings in force from now on,
// and no others.
void RenewUserDefinedFields();

// Puts the standard workforms in force. Throws FileError as LoadDictionaries does, and if the
// workform that stands in for others is not among them.
void LoadWorkforms();

// The codes of the control fields, with what is published of them. Throws FileError.
CodeLists LoadCodeLists();

}  // namespace quillory
