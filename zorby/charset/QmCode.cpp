#include <zorby/charset/QmCode.h>
#include <zorby/charset/detail/Engine.h>

#include <algorithm>

namespace zorby {

constinit thread_local unsigned char currentAlphabet = kAlphabetBasic;

namespace {

int displayType = kDisplayNone;
int engineReady = 0;

[[maybe_unused]] const bool initialisedAtLoad = (CSInitialize(), true);

}  // namespace

void CSInitialize() {
    CSResetAlphabet();
    engineReady = 1;
}

void CSFree() {
    engineReady = 0;
}

void CSResetAlphabet() {
    currentAlphabet = kAlphabetBasic;
}

int CSSetDisplayType(int type) {
    displayType = type;
    return displayType;
}

int CSGetDisplayType() {
    return displayType;
}

int CSInSIL() {
    return displayType == kDisplaySIL ? 1 : 0;
}

int CSKeyInfo(unsigned char key, unsigned char* code, unsigned char* display, unsigned type) {
    if (engineReady == 0 || type == 0) return 0;
    *code = 0;
    *display = 0;
    if (IsPrintableASCII(key)) {
        *code = key;
        *display = key;
        return 1;
    }
    const auto row = std::find_if(kKeyTable.begin(), kKeyTable.end(),
                                  [key](const KeyRecord& record) { return record.key == key; });
    if (row == kKeyTable.end()) return 0;
    *code = static_cast<unsigned char>(row - kKeyTable.begin());
    *display = DisplayCode(*code, static_cast<int>(type), 0);
    return 1;
}

unsigned char CSGetKeyFromQmCode(unsigned char code) {
    return IsPrintableASCII(code) ? code : kKeyTable[code].key;
}

}  // namespace zorby
