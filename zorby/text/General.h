#pragma once

#include <zorby/Export.h>
#include <zorby/ini/INIProfile.h>
#include <zorby/platform/Font.h>

#include <string>
#include <string_view>

namespace zorby {

// Small text operations, and the facts about the running program that the host sets once and the
// whole library reads. No lock guards these facts: they belong to the host's user-interface thread.
class ZORBY_EXPORT CGeneral {
public:
    CGeneral() = delete;

    static CINIProfile m_iniUserProfile;  // the user's settings; the host initialises it
    static std::string m_strQMVersion;    // the host's version text
    static bool m_bRecordViewerIsOpen;    // true while the host's record viewer is open
    static bool m_bComCtl32IsCurrent;

    // What the host's licence allows. The library only keeps these values for the host.
    static std::string m_csAccessKey;
    static bool m_bLicensedForCataloging;
    static bool m_bLicensedForImport;
    static bool m_bLicensedForExport;
    static bool m_bLicensedForGlobalEditing;
    static bool m_bLicensedForSpellChecking;
    static bool m_bLicensedForCards;
    static bool m_bLicensedForLabels;

    static bool RecordViewerIsOpen();
    static bool ComCtl32IsCurrent();

    // Removes every "&".
    static void RemoveAmpersand(std::string& text);

    // Copies the text before the first `stop`, or the whole text if there is none, and terminates
    // the target, which must have room for the result and its terminator.
    static void StrCpyTill(char* target, const char* source, char stop);

    // Returns how many characters there are up to the first `stop`, including it, or the length of
    // the text if it has no `stop`.
    static unsigned CountCharsTill(const char* source, char stop);

    // Puts the text before the first `at` in `left` and the text after it in `right`. If there is
    // no `at`, all of the text goes in `left`.
    static void SplitStringAtChar(const char* source, char at, std::string& left,
                                  std::string& right);

    // Turns each blank of a terminated text into 0xB7, the display form of a blank indicator.
    static void BlankToDot(char* text);

    // Returns 1 if the text holds nothing but blanks, or nothing at all, else 0.
    static int IsAllBlanks(std::string_view text);

    // Adds one to the number at the end of the text and keeps its width: "ABC099" becomes "ABC100",
    // and "ABC999" becomes "ABC000". A text that doesn't end in a digit stays as it is.
    static void IncrementNumber(std::string& text);

    // Returns the number in the first `length` bytes of a text; reading ends early at a terminator.
    // Returns 0 if `length` is above 5 or not above 0, and `length` itself if the text doesn't
    // begin with a number.
    static unsigned UIntFromASCII(const char* text, int length);

    // Writes exactly `width` digits and no terminator. A short number gets leading zeros, and a
    // long one keeps only its left digits. The target needs room for `width` bytes.
    static void UIntToASCII(unsigned value, char* target, int width);

    // Breaks a call number into the lines of a spine label: at each blank and each "/", except at a
    // blank after a volume or copy mark (CopyVolumeSkipList). Lines end in 0x0A if `lineFeedOnly`
    // is nonzero, else in 0x0D 0x0A.
    static std::string BreakCallNumber(std::string_view callNumber, int lineFeedOnly);

    // Returns the volume and copy marks of a call number, each with its leading blank, and a null
    // after the last one.
    static const char* const* CopyVolumeSkipList();

    // Returns 1 if the MARC 21 tag is a subject heading whose second indicator names the thesaurus.
    static int IsSubjectWithSecondInd(int tag);

    // Returns 1 if the MARC 21 tag is a subject heading that may name its thesaurus in $2.
    static int IsSubjectWithSubfield2(int tag);

    // Gives the bytes that are printable ASCII (0x20 to 0x7E) among the first `count` bytes of the
    // source, and skips all others. A terminator doesn't end the source, which must have `count`
    // bytes.
    static void TextToQmCharSet(const char* source, std::string& target, unsigned count);

    // Replaces every character outside ASCII by a plain letter or a blank.
    static void TranslateToNonDiacritic(std::string& text);

    // Searches a text for a pattern, as WildPattern does, from `position` on. Returns 1 with the
    // first and the last byte of what it found, and `position` after it, where the next call
    // starts. Returns 0 if it finds nothing; what it gives then means nothing, but if the pattern
    // is empty or `position` is not in the text, all three stay as they were.
    static int FindWild(std::string_view text, std::string_view pattern, int wholeWords,
                        int& position, int& foundStart, int& foundEnd, int useWildcards);

    // The only stop-watch of the process, on the ClockPort in force.
    static void StopWatchBegin();
    static void StopWatchEnd();

    // Returns the seconds between begin and end with six decimals, such as "1.250000".
    static std::string StopWatchGet();

    // Returns after that many seconds of the ClockPort in force.
    static void DelayForSeconds(int seconds);

    // Returns whether the ApplicationPort in force calls the platform a Windows NT.
    static bool IsRunningOnNTPlatform();

    // If `pointer` is null, tells the user that memory ran out at this place of the source, and
    // asks the main frame to close, both through the MessagePort in force. It returns in any case,
    // so the caller must be able to go on.
    static void CheckAllocFailure(const void* pointer, const char* file, int line);

    // The fonts of dialogs. The host fills them in, and the library owns them.
    static CFont* DialogFont();
    static CFont* DialogFontBold();

    // Keep the name of the import file for the host.
    static void ImportFileName(std::string_view name);
    static std::string ImportFileName();

    static std::string GetApplicationName();

    // Returns what the Texas Library Connection requires of a record, as it is shown to the user.
    static std::string TLCExplanation();

    // Returns the characters that a file name must not have.
    static std::string StrInvalidFullFileNameChars();
};

}  // namespace zorby
