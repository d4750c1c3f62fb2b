#pragma once

#include <zorby/elements/CFPart.h>

namespace zorby {

// Called for each element that a repair has given another value. `context` is passed through.
using ReplacedPartCallback = void (*)(CFPart part, void* context);

}  // namespace zorby
