#pragma once

#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <stdexcept>
#include <string>

namespace datatool {

// A dictionary that can't be told as a source.
class NoSource : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The dictionary as the text of one source. Throws NoSource.
std::string DumpFormat(const zorby::CMARCFormat& format);
std::string DumpHoldings(const zorby::CInfoAboutHoldingsTypeList& types);

}  // namespace datatool
