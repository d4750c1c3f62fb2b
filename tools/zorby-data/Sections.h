#pragma once

#include <string_view>

namespace datatool {

// A section of a source, and the line below its name, which names its columns.
struct Section {
    std::string_view name;
    std::string_view header;
};

inline constexpr Section kFormat{"format", "name"};
inline constexpr Section kFields{"fields", "tag\tname\trepeatable\tmandatory\tfirst\tsecond"};
inline constexpr Section kSubfields{"subfields",
                                    "tag\tcode\tname\trepeatable\tmandatory\tprompt\tpriority"};
inline constexpr Section kIndicatorNames{"indicator names", "tag\twhich\tname"};
inline constexpr Section kIndicatorValues{"indicator values", "tag\twhich\tvalue\tname"};
inline constexpr Section kIndicatorExplanations{"indicator explanations", "tag\twhich\ttext"};

inline constexpr Section kType{"type", "name\ttype\tflags\toption"};
inline constexpr Section kFormerNames{"former names", "name"};
inline constexpr Section kElements{"elements",
                                   "name\tid\ttag\tsubfield\trepeat\tonce\textra\thelp"};

}  // namespace datatool
