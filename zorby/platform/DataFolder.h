#pragma once

#include <zorby/Export.h>

#include <string>

namespace zorby {

// Returns the folder of the data files (MARCBibl.tfm, zorby.hld, zorby.ttm) that were installed
// with this library, with its trailing separator. The folder is found from where the library itself
// lies, so an installation may be moved as a whole. Empty if the files are not there.
ZORBY_EXPORT std::string InstalledDataFolder();

}  // namespace zorby
