#pragma once

#include <zorby/Export.h>

namespace zorby {

// The place of a window, in pixels of the screen.
struct WindowPlacement {
    int length = 0;       // size of the record in bytes; ReadWindowPlacement gives 44
    int flags = 0;        // 2: the window is maximised again when it is restored from an icon
    int showCommand = 0;  // 1 normal, 2 minimised, 3 maximised
    int minimizedX = 0;
    int minimizedY = 0;
    int maximizedX = 0;
    int maximizedY = 0;
    int left = 0;  // of the window when it is neither minimised nor maximised
    int top = 0;
    int right = 0;
    int bottom = 0;
};

// `which` names the window: 0 cataloguing, 1 record list, 2 record viewer. For any other number
// both functions do nothing.

// Gives the stored placement, or the default one if no complete one is stored. The record list
// never comes back minimised.
ZORBY_EXPORT void ReadWindowPlacement(WindowPlacement* placement, int which);

// Stores the ten numbers that follow the length in the section "Settings" of the user's file.
ZORBY_EXPORT void WriteWindowPlacement(const WindowPlacement* placement, int which);

}  // namespace zorby
