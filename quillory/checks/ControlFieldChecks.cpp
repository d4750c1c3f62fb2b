#include <quillory/checks/ControlFieldChecks.h>
#include <quillory/coded/Material.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kTypeOfDate = 6;
constexpr std::size_t kFirstDate = 7;
constexpr std::size_t kSecondDate = 11;
constexpr std::size_t kDateSize = 4;
constexpr std::size_t kPlace = 15;
constexpr std::size_t kPlaceSize = 3;
constexpr std::size_t kRunningTime = 18;
constexpr std::size_t kRunningTimeSize = 3;
constexpr std::size_t kVisualType = 33;

constexpr char kTypeBeforeChrist = 'b';
// Ranges, continuing resources, questionable dates, date of production, original and copyright.
constexpr std::string_view kTypesWithTwoDates = "cdikmpqtu";
// Originals and reproductions of art, dioramas, filmstrips, games, pictures, graphics, technical
// drawings, charts, flash cards, microscope slides, models, realia, slides, transparencies, toys.
constexpr std::string_view kStillVisualTypes = "acdfgiklnopqrstw";

std::string_view Part(std::string_view field, std::size_t start, std::size_t size) {
    return start < field.size() ? field.substr(start, size) : std::string_view();
}

char ByteOf(std::string_view field, std::size_t position) {
    return position < field.size() ? field[position] : '\0';
}

bool IsDate(std::string_view date) {
    return date != "0000" && date != "9999" && std::ranges::any_of(date, IsDigit);
}

bool IsIn(char code, std::string_view codes) {
    return codes.find(code) != codes.npos;
}

}  // namespace

bool IsDateUnknown(std::string_view field008) {
    const char type = ByteOf(field008, kTypeOfDate);
    if (type == kTypeBeforeChrist || IsDate(Part(field008, kFirstDate, kDateSize))) return false;
    return !IsIn(type, kTypesWithTwoDates) || !IsDate(Part(field008, kSecondDate, kDateSize));
}

bool IsRunningTimeUnknown(std::string_view leader, std::string_view field008) {
    if (MaterialOfLeader(leader) != zorby::CF006Visual) return false;
    if (IsIn(ByteOf(field008, kVisualType), kStillVisualTypes)) return false;
    const std::string_view time = Part(field008, kRunningTime, kRunningTimeSize);
    return time != "nnn" && !std::ranges::any_of(time, IsDigit);
}

bool IsPlaceUnknown(std::string_view field008) {
    const std::string_view place = Part(field008, kPlace, kPlaceSize);
    const auto isEnd = [](char c) { return c == ' ' || c == '|'; };
    const auto size = static_cast<std::size_t>(std::ranges::find_if(place, isEnd) - place.begin());
    return size == 0 || place.substr(0, size) == "xx";
}

}  // namespace quillory
