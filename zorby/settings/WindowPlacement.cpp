#include <zorby/platform/WorkAreaPort.h>
#include <zorby/platform/detail/Decimal.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/WindowPlacement.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zorby {

namespace {

constexpr std::string_view kPlacementSection = "Settings";
constexpr std::array<const char*, 3> kKeys{"ZorbyWindowPos", "RecVWindowPos",
                                           "RecordViewerWindowPos"};
constexpr int kCataloguing = 0;
constexpr int kRecordList = 1;

constexpr int kRecordLength = 44;
constexpr int kShowNormal = 1;
constexpr int kShowMinimized = 2;
constexpr int kShowMaximized = 3;
constexpr int kRestoreToMaximized = 2;

constexpr std::array kStoredFields{
    &WindowPlacement::flags,      &WindowPlacement::showCommand, &WindowPlacement::minimizedX,
    &WindowPlacement::minimizedY, &WindowPlacement::maximizedX,  &WindowPlacement::maximizedY,
    &WindowPlacement::left,       &WindowPlacement::top,         &WindowPlacement::right,
    &WindowPlacement::bottom,
};
constexpr std::size_t kUnsignedFields = 2;  // the first fields are stored as unsigned numbers

const char* KeyOf(int which) {
    const auto index = static_cast<std::size_t>(which);
    return index < kKeys.size() ? kKeys[index] : nullptr;
}

// Takes a number off the text, or takes nothing and returns false if there is none.
bool TakeNumber(std::string_view& text, int& number) {
    const std::size_t start = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
    const std::size_t signEnd =
        start + (text.substr(start).starts_with('-') || text.substr(start).starts_with('+'));
    const std::size_t end = std::min(text.find_first_not_of("0123456789", signEnd), text.size());
    if (end == signEnd) return false;
    number = static_cast<int>(DecimalUnsigned(text.substr(0, end)));
    text.remove_prefix(end);
    return true;
}

std::optional<WindowPlacement> Parse(std::string_view text) {
    WindowPlacement placement;
    for (std::size_t i = 0; i < kStoredFields.size(); ++i) {
        if (i > 0) {
            if (!text.starts_with(',')) return std::nullopt;
            text.remove_prefix(1);
        }
        if (!TakeNumber(text, placement.*kStoredFields[i])) return std::nullopt;
    }
    return placement;
}

WindowPlacement CataloguingDefault() {
    constexpr int kMargin = 10;
    const WorkArea area = CurrentWorkAreaPort().Get();
    WindowPlacement placement{.showCommand = kShowNormal};
    placement.left = area.left + kMargin;
    placement.top = area.top + kMargin;
    placement.right = kMargin + static_cast<int>((area.right - area.left) * 0.75);
    placement.bottom = kMargin + static_cast<int>((area.bottom - area.top) * 0.75);
    return placement;
}

WindowPlacement DefaultOf(int which) {
    if (which == kCataloguing) return CataloguingDefault();
    if (which == kRecordList) {
        return {.showCommand = kShowMaximized, .left = 9, .top = 9, .right = 627, .bottom = 467};
    }
    return {.showCommand = kShowNormal, .left = 49, .top = 49, .right = 657, .bottom = 497};
}

WindowPlacement DefaultPlacement(int which) {
    WindowPlacement placement = DefaultOf(which);
    placement.minimizedX = placement.minimizedY = -1;
    placement.maximizedX = placement.maximizedY = -1;
    return placement;
}

void RestoreFromIcon(WindowPlacement& placement) {
    const bool wasMaximized = placement.flags == kRestoreToMaximized;
    placement.showCommand = wasMaximized ? kShowMaximized : kShowNormal;
    placement.flags = 0;
}

}  // namespace

void ReadWindowPlacement(WindowPlacement* placement, int which) {
    const char* key = KeyOf(which);
    if (!key) return;
    std::string text;
    GetZorbyProfileStringRaw(kPlacementSection, key, text);
    std::optional<WindowPlacement> stored = Parse(text);
    if (stored && which == kRecordList && stored->showCommand == kShowMinimized) {
        RestoreFromIcon(*stored);
    }
    *placement = stored ? *stored : DefaultPlacement(which);
    placement->length = kRecordLength;
}

void WriteWindowPlacement(const WindowPlacement* placement, int which) {
    const char* key = KeyOf(which);
    if (!key) return;
    std::string text;
    for (std::size_t i = 0; i < kStoredFields.size(); ++i) {
        const int number = placement->*kStoredFields[i];
        if (i > 0) text += ",";
        text += i < kUnsignedFields ? std::to_string(static_cast<unsigned>(number))
                                    : std::to_string(number);
    }
    WriteZorbyProfileStringRaw(kPlacementSection, key, text.c_str());
}

}  // namespace zorby
