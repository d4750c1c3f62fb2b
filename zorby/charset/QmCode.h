#pragma once

#include <zorby/Export.h>

namespace zorby {

// Display types. Any other value is kept as it is, and maps every code but printable ASCII to 0.
enum DisplayType : int {
    kDisplayNone = 0,
    kDisplayANSI = 1,  // Windows-1252; a diacritic stands as a spacing mark behind its letter
    kDisplaySIL = 2,   // a font laid out as the `Qm` code itself
};

// The engine keeps three values for the whole process: the MARC-8 alphabet in force, the display
// type, and whether it is ready. They are unguarded: two conversions may not overlap.

// Resets the alphabet and makes the engine ready. Loading the library does this.
ZORBY_EXPORT void CSInitialize();
// Ends readiness, which only CSKeyInfo asks for.
ZORBY_EXPORT void CSFree();
// Back to the basic alphabet. Every conversion of a whole text begins with this.
ZORBY_EXPORT void CSResetAlphabet();

// Stores the display type and returns it.
ZORBY_EXPORT int CSSetDisplayType(int type);
ZORBY_EXPORT int CSGetDisplayType();
// 1 if the display type is kDisplaySIL, else 0.
ZORBY_EXPORT int CSInSIL();

// What a key produces: its `Qm` code and the display code of that under `type`. Result 1, or 0 for
// a key that produces nothing (both outputs 0). Before CSInitialize, and for type 0, the result is
// 0 and the outputs are untouched.
ZORBY_EXPORT int CSKeyInfo(unsigned char key, unsigned char* code, unsigned char* display,
                           unsigned type);
// The key that types a `Qm` code; 0 if none does.
ZORBY_EXPORT unsigned char CSGetKeyFromQmCode(unsigned char code);

}  // namespace zorby
