#pragma once

#include <quillory/coded/Decoder.h>
#include <quillory/exchange/Record.h>
#include <zorby/format/DisplayOptions.h>

#include <string>

namespace quillory {

// What is known of a place that a person has in hand, in the words of `describe`: a heading and
// paragraphs, in UTF-8. Of a coded field it is what the field says in `record`, element by element.
struct PlaceHelp {
    std::string heading;  // "245 $a  Title"
    std::string text;     // lines; may be empty
};
PlaceHelp HelpOn(const Place& place, const Record& record, const Decoder& decoder,
                 zorby::EDISPLAYOPTIONS display);

}  // namespace quillory
