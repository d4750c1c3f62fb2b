#include <quillory/cataloging/PublicationDate.h>

#include <array>

namespace quillory {
namespace {

constexpr std::size_t kYearSize = 4;

// What stands around a year and leaves it certain: brackets, points, and the signs of copyright.
std::string WithoutSigns(std::string_view date) {
    constexpr std::array<std::string_view, 9> kSigns{
        "[", "]", ".", ",", " ", "\302\251", "\342\204\227", "c", "p"};
    std::string plain(date);
    for (const std::string_view sign : kSigns) {
        for (std::size_t at = 0; (at = plain.find(sign, at)) != plain.npos;) {
            plain.erase(at, sign.size());
        }
    }
    return plain;
}

}  // namespace

std::string YearOf(std::string_view date, bool isContinuing) {
    std::string year = WithoutSigns(date);
    if (isContinuing && year.size() == kYearSize + 1 && year.back() == '-') year.pop_back();
    const bool isYear =
        year.size() == kYearSize && year.find_first_not_of("0123456789") == year.npos;
    return isYear ? year : std::string();
}

}  // namespace quillory
