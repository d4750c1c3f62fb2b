#pragma once

#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/workforms/TemplateList.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace datatool {

// A dictionary that no source can describe.
class NoSource : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The text of a source, and the name of its file where a dictionary makes several.
struct Source {
    std::string name;
    std::string text;
};

// The dictionary as the text of one source. Throws NoSource.
std::string DumpFormat(const zorby::CMARCFormat& format);
std::string DumpHoldings(const zorby::CInfoAboutHoldingsTypeList& types);
// A source for each workform. Throws NoSource.
std::vector<Source> DumpWorkforms(const zorby::CTemplateList& workforms);

}  // namespace datatool
