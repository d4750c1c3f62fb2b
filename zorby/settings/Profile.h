#pragma once

#include <zorby/Export.h>
#include <zorby/settings/ProfileKeys.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The settings of the program: one file for all users in the data folder, "Quillory Main.ini",
// which says who the user is, and one file for each user, "Quillory N.INI".
//
// All reads come from memory, from CGeneral::m_iniUserProfile, which the host fills from the file
// that GetZorbyProfilePath names. All writes go to memory, and then to that file through the
// ProfileFilePort in force. If the port fails to write, no function here reports that. No lock
// guards the state.

// The folder of all settings and data files, with its trailing separator. Setting null changes
// nothing.
ZORBY_EXPORT void SetZorbyProfilePath(const char* path);
ZORBY_EXPORT void GetDataPath(std::string& path);

// The user's number, which is 0 at first. A change doesn't reload the settings in memory; the host
// must do that.
ZORBY_EXPORT void ZorbyProfileChangeUserID(int userID);
ZORBY_EXPORT int GetThisUserID();

// Returns the path of the user's file. While the user's number isn't above 0, it is first read from
// the file for all users, which is in the program's own folder if no data folder was set.
ZORBY_EXPORT std::string GetZorbyProfilePath();

// Read or write a key by its number (ProfileKey). An absent key reads as its default. An unknown
// number reads as 0 or as an empty text, and is not written.
ZORBY_EXPORT int GetZorbyProfileInt(int id);
ZORBY_EXPORT void WriteZorbyProfileInt(int id, int value);
ZORBY_EXPORT void GetZorbyProfileString(int id, std::string& value);
ZORBY_EXPORT void WriteZorbyProfileString(int id, std::string_view value);

// Writes a key to memory, to the user's file, and to the same user's file of the other
// installation: the one in the folder "Learning", or the one outside of it.
ZORBY_EXPORT void WriteZorbyProfileIntBoth(int id, int value);

// A list in one key. Each item is between the texts `first` and `second`. When items are written,
// they lose backslashes at their start. Reading strips by sets of characters: an item may lose
// leading characters that are in the item before it, in `first` or in `second`.
ZORBY_EXPORT void GetZorbyProfileStringList(int id, std::string_view first,
                                            std::vector<std::string>& list,
                                            std::string_view second);
ZORBY_EXPORT void WriteZorbyProfileStringList(int id, std::string_view first,
                                              const std::vector<std::string>& list,
                                              std::string_view second);
ZORBY_EXPORT void GetZorbyProfileUIntArray(int id, std::string_view first,
                                           std::vector<unsigned>& array, std::string_view second);
ZORBY_EXPORT void WriteZorbyProfileUIntArray(int id, std::string_view first,
                                             const std::vector<unsigned>& array,
                                             std::string_view second);

// Any section and key of the user's file. An absent text reads as empty. A null value removes the
// key from the file, and makes it an empty text in memory.
ZORBY_EXPORT void GetZorbyProfileStringRaw(std::string_view section, std::string_view key,
                                           std::string& value);
ZORBY_EXPORT void WriteZorbyProfileStringRaw(std::string_view section, std::string_view key,
                                             const char* value);
ZORBY_EXPORT int GetZorbyProfileIntRaw(std::string_view section, std::string_view key,
                                       int defaultValue);
ZORBY_EXPORT void WriteZorbyProfileIntRaw(std::string_view section, std::string_view key,
                                          int value);

}  // namespace zorby
