#pragma once

#include <zorby/workforms/Template.h>

#include <map>
#include <string>

namespace quillory {

// Subfield codes by tag, each once.
using CodesByTag = std::map<unsigned, std::string>;

// The fields and subfields for which a workform has help, prompts or priorities of its own, but no
// default data.
CodesByTag PlacesWithoutData(const zorby::CTemplate& workform);

}  // namespace quillory
