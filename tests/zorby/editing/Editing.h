#pragma once

#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/MemoryEdit.h>
#include <zorby/platform/PortInForce.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

// A field in memory with its clipboard and signals, and what a person does in it.
class Editing : public testing::Test {
protected:
    Editing() { zorby::CSSetDisplayType(zorby::kDisplaySIL); }
    ~Editing() override { zorby::CSSetDisplayType(zorby::kDisplayNone); }

    void Type(std::string_view keys) {
        for (const char key : keys) edit.OnChar(static_cast<unsigned char>(key));
    }
    void Press(zorby::EditKey key, int times = 1) {
        for (int i = 0; i < times; ++i) edit.OnKeyDown({key});
    }
    void PressWithShift(zorby::EditKey key, int times = 1) {
        for (int i = 0; i < times; ++i) edit.OnKeyDown({key, true});
    }
    void PressWithCtrl(zorby::EditKey key) { edit.OnKeyDown({key, false, true}); }

    std::string Real() const {
        std::string text;
        edit.GetWindowTextA(text);
        return text;
    }
    // The real text with the caret as "|", and with "[" at the other end of a selection.
    std::string Shown() const {
        std::string text = Real();
        const auto anchor = static_cast<std::size_t>(box.anchor);
        const auto caret = static_cast<std::size_t>(box.caret);
        text.insert(std::max(anchor, caret), anchor < caret ? "|" : anchor == caret ? "" : "[");
        text.insert(std::min(anchor, caret), anchor < caret ? "[" : "|");
        return text;
    }
    // The point in a character of the first line.
    static zorby::ControlPoint At(int position) {
        return {position * zorby::MemoryEdit::kCharWidth + 1, 1};
    }

    zorby::MemoryClipboard clipboard;
    zorby::ClipboardInForce clipboardInForce{clipboard};
    zorby::RecordedSignals signals;
    zorby::SignalsInForce signalsInForce{signals};
    zorby::MemoryEdit box;
    zorby::CEditMARCAlpha edit{box};
};
