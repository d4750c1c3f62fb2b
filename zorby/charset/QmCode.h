#pragma once

#include <zorby/Export.h>

namespace zorby {

// The display types. Any other value is kept as it is, and maps every code except printable ASCII
// to 0.
enum DisplayType : int {
    kDisplayNone = 0,
    kDisplayANSI = 1,  // Windows-1252; a diacritic is a spacing mark after its letter
    kDisplaySIL = 2,   // a font laid out as the `Qm` code itself
};

// The engine keeps three values for the whole process: the MARC-8 alphabet in force, the display
// type, and whether it is ready. No lock guards them, so two conversions must not overlap.

// Resets the alphabet and makes the engine ready. This is done when the library is loaded.
ZORBY_EXPORT void CSInitialize();
// Makes the engine not ready, which matters only to CSKeyInfo.
ZORBY_EXPORT void CSFree();
// Returns to the basic alphabet. Every conversion of a whole text begins with this.
ZORBY_EXPORT void CSResetAlphabet();

// Stores the display type and returns it.
ZORBY_EXPORT int CSSetDisplayType(int type);
ZORBY_EXPORT int CSGetDisplayType();
// Returns 1 if the display type is kDisplaySIL, else 0.
ZORBY_EXPORT int CSInSIL();

// Gives the `Qm` code that a key produces, and the display code of that code under `type`. Returns
// 1, or 0 with both outputs 0 if the key produces nothing. Before CSInitialize, and for type 0, it
// returns 0 and leaves the outputs untouched.
ZORBY_EXPORT int CSKeyInfo(unsigned char key, unsigned char* code, unsigned char* display,
                           unsigned type);
// Returns the key that types a `Qm` code, or 0 if none does.
ZORBY_EXPORT unsigned char CSGetKeyFromQmCode(unsigned char code);

}  // namespace zorby
