#pragma once

#include <quillory/text/JsonWriter.h>
#include <zorby/format/DisplayOptions.h>

#include <string>
#include <vector>

namespace quillory {

// A field, subfield or indicator value of the dictionary, in UTF-8.
struct SearchHit {
    std::string place;  // "245", "245a", "245/2"
    std::string name;
};
using SearchHits = std::vector<SearchHit>;

// All whose names have all the words, in any case.
SearchHits SearchDictionary(const std::string& words, zorby::EDISPLAYOPTIONS display);

std::string ToText(const SearchHits& hits);
void ToJson(const SearchHit& hit, JsonWriter& json);

}  // namespace quillory
