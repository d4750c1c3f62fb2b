#include <zorby/charset/Compare.h>
#include <zorby/charset/QmCode.h>
#include <zorby/controls/detail/FlagGuard.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/PaletteTable.h>
#include <zorby/editing/detail/TypedCodes.h>
#include <zorby/platform/SignalPort.h>

#include <algorithm>
#include <array>

namespace zorby {

namespace {

// What the control keys type that are handled as keys, and what Escape does.
constexpr std::array<unsigned char, 9> kSilent = {0x01, 0x03, 0x09, 0x10, 0x13,
                                                  0x16, 0x18, 0x1A, 0x1B};

void BeepForKey() {
    CurrentSignalPort().Beep(500, 100);
}

}  // namespace

void CEditMARCAlpha::OnChar(unsigned char key) {
    if (key == kBackspace) {
        OnBackspace();
    } else {
        OnTyped(key);
    }
}

void CEditMARCAlpha::OnBackspace() {
    const bool isCaret = GetSel().IsEmpty();
    if (!isInRepeat_ && isCaret && CSInSIL() && AtDiacritic(EditKey::kBackspace, 0)) {
        const FlagGuard repeat(isInRepeat_);
        const auto send = [this] { OnChar(kBackspace); };
        SendWhileAtDiacritic(EditKey::kBackspace, send);
        send();
        return;
    }
    if (!isInRepeat_) ExpandSelectionToIncludeDiacritics();
    BufferMaintOnChar(kBackspace);
    Erase(-1);
    BufferMaintCheckChanges();
}

void CEditMARCAlpha::OnTyped(unsigned char key) {
    unsigned char code = 0;
    unsigned char display = 0;
    CSKeyInfo(key, &code, &display, static_cast<unsigned>(CSGetDisplayType()));
    if (code != 0) {
        TypeCode(code, display);
    } else if (std::ranges::find(kSilent, key) == kSilent.end()) {
        BeepForKey();
    }
    BufferMaintCheckChanges();
}

bool CEditMARCAlpha::HasRoomFor(int bytes) const {
    const Selection selection = GetSel();
    const int kept = GetWindowTextLengthA() - (selection.end - selection.start);
    return limit_ == 0 || kept + bytes <= limit_;
}

void CEditMARCAlpha::TypeCode(unsigned char code, unsigned char display) {
    const Selection selection = GetSel();
    const bool isAtStart = selection.IsEmpty() && selection.start == 0;
    const bool needsBlank = isAtStart && CSIsDiacritic(code) && CSInSIL();
    if (!HasRoomFor(needsBlank ? 2 : 1)) {
        BeepForKey();
        return;
    }
    if (needsBlank) TypeInBoth(kBlankForDiacritic, kNoGlyph);
    TypeInBoth(code, display);
}

void CEditMARCAlpha::TypeInBoth(unsigned char code, unsigned char display) {
    BufferMaintOnChar(code);
    const char byte = static_cast<char>(display);
    port_.ReplaceSelection({&byte, 1});
}

void CEditMARCAlpha::AddCharFromButton(unsigned id) {
    for (const char code : PaletteText(id)) {
        OnChar(CSGetKeyFromQmCode(static_cast<unsigned char>(code)));
    }
}

}  // namespace zorby
