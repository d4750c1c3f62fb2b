#pragma once

#include <zorby/elements/CFPart.h>

namespace zorby {

// Called for each element whose value a repair has replaced. `context` is passed through.
using ReplacedPartCallback = void (*)(CFPart part, void* context);

}  // namespace zorby
