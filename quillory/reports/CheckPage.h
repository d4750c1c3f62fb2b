#pragma once

#include <quillory/exchange/Output.h>

#include <functional>
#include <map>
#include <string_view>

namespace quillory {

// The fixed parts of a check's page are the files in the folder page/. A line of them such as
// {{rows}} is a slot: what is written in its place ends its own lines.
extern const std::string_view kCheckPage;        // check.html
extern const std::string_view kFindingsSection;  // findings.html
extern const std::string_view kDamageSection;    // damage.html
extern const std::string_view kCheckStyle;       // check.css
// Sorts the findings by the column whose head is pressed, and hides those without the words typed.
extern const std::string_view kCheckScript;  // check.js
// The page of what was counted, in the same style.
extern const std::string_view kCountPage;  // count.html
// The page of a repair, in the same style and with the same script.
extern const std::string_view kRepairPage;  // repair.html

// What writes the text of each slot, by its name.
using PageSlots = std::map<std::string_view, std::function<void()>>;

// Writes a part to the output, to which the slots write, too. There is a slot of each of its names.
void WritePagePart(std::string_view part, const PageSlots& slots, Output& output);

}  // namespace quillory
