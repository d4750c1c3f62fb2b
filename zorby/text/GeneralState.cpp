#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/ClockPort.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace zorby {

namespace {

constexpr int kBoldWeight = 700;

CFont dialogFont;
CFont dialogFontBold{.faceName = {}, .pointSize = 0, .weight = kBoldWeight, .italic = false};
std::string importFileName;
std::int64_t stopWatchBegin = 0;
std::int64_t stopWatchEnd = 0;

}  // namespace

CINIProfile CGeneral::m_iniUserProfile;
std::string CGeneral::m_strQMVersion;
bool CGeneral::m_bRecordViewerIsOpen = false;
bool CGeneral::m_bComCtl32IsCurrent = false;
std::string CGeneral::m_csAccessKey;
bool CGeneral::m_bLicensedForCataloging = false;
bool CGeneral::m_bLicensedForImport = false;
bool CGeneral::m_bLicensedForExport = false;
bool CGeneral::m_bLicensedForGlobalEditing = false;
bool CGeneral::m_bLicensedForSpellChecking = false;
bool CGeneral::m_bLicensedForCards = false;
bool CGeneral::m_bLicensedForLabels = false;

bool CGeneral::RecordViewerIsOpen() {
    return m_bRecordViewerIsOpen;
}

bool CGeneral::ComCtl32IsCurrent() {
    return m_bComCtl32IsCurrent;
}

void CGeneral::StopWatchBegin() {
    stopWatchBegin = CurrentClockPort().Milliseconds();
}

void CGeneral::StopWatchEnd() {
    stopWatchEnd = CurrentClockPort().Milliseconds();
}

std::string CGeneral::StopWatchGet() {
    return std::to_string(static_cast<double>(stopWatchEnd - stopWatchBegin) * 0.001);
}

void CGeneral::DelayForSeconds(int seconds) {
    CurrentClockPort().Wait(std::int64_t{seconds} * 1000);
}

bool CGeneral::IsRunningOnNTPlatform() {
    return CurrentApplicationPort().IsNTPlatform();
}

void CGeneral::CheckAllocFailure(const void* pointer, const char* file, int line) {
    if (pointer) return;
    std::array<char, 1024> text{};  // not on the heap, which is exhausted
    std::snprintf(text.data(), text.size(),
                  "The program ran out of memory and will terminate.\r\nFile: %s\r\nLine: %d", file,
                  line);
    MessagePort& port = CurrentMessagePort();
    port.ShowMessage(text.data(), "Memory Problem", MessageIcon::kWarning);
    port.RequestClose();
}

CFont* CGeneral::DialogFont() {
    return &dialogFont;
}

CFont* CGeneral::DialogFontBold() {
    return &dialogFontBold;
}

void CGeneral::ImportFileName(std::string_view name) {
    importFileName = name;
}

std::string CGeneral::ImportFileName() {
    return importFileName;
}

std::string CGeneral::GetApplicationName() {
    return "Quillory";
}

std::string CGeneral::TLCExplanation() {
    return "Records that do not meet the Texas Library Connection requirements cannot be exported. "
           "For all other omissions and errors, you can make your own settings for how the program "
           "should handle them. The Texas Library Connection requires that all records have a "
           "correct title, name of publisher, date of publication, and extent description. The "
           "title must not be in all upper case letters.";
}

std::string CGeneral::StrInvalidFullFileNameChars() {
    return "?\"/<>*|:;";
}

}  // namespace zorby
