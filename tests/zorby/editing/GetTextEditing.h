#pragma once

#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlphaGT.h>
#include <zorby/platform/MemoryEdit.h>
#include <zorby/platform/PortInForce.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <tests/zorby/selection/Selection.h>

// A field of a global edit in memory. Texts of these tests have "{A}" in the place of the
// description of 245 $a, and "{B}" for 500 $a.
class GetTextEditing : public Selection {
protected:
    static constexpr std::string_view kA = "<<Field: Title statement (245), Subfield: $a>>";
    static constexpr std::string_view kB = "<<Field: Note (500), Subfield: $a>>";

    GetTextEditing() { zorby::CSSetDisplayType(zorby::kDisplayANSI); }
    ~GetTextEditing() override { zorby::CSSetDisplayType(zorby::kDisplayNone); }

    static void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
        for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) {
            text.replace(at, from.size(), to);
        }
    }
    static std::string Whole(std::string text) {
        ReplaceAll(text, "{A}", kA);
        ReplaceAll(text, "{B}", kB);
        return text;
    }
    static std::string Short(std::string text) {
        ReplaceAll(text, kA, "{A}");
        ReplaceAll(text, kB, "{B}");
        return text;
    }

    // Sets a text with fields. "|" is the caret, and "[" the other end of a selection.
    void Set(std::string text) {
        text = Whole(text);
        const std::size_t anchor = text.find('[');
        if (anchor != text.npos) text.erase(anchor, 1);
        const std::size_t caret = text.find('|');
        if (caret != text.npos) text.erase(caret, 1);
        const bool isAfter = anchor != text.npos && caret < anchor;  // the caret was before it
        edit.Initialize(StateOf(text), true, nullptr);
        if (caret == text.npos) return;
        const std::size_t other = anchor == text.npos ? caret : anchor - (isAfter ? 1 : 0);
        box.Select(static_cast<int>(other), static_cast<int>(caret));
    }
    static std::string StateOf(std::string text) {
        std::string state;
        int number = 0;
        const std::string displayed = text;
        for (std::size_t at = 0; at < displayed.size(); ++at) {
            const bool isA = displayed.compare(at, kA.size(), kA) == 0;
            const bool isB = displayed.compare(at, kB.size(), kB) == 0;
            if (!isA && !isB) continue;
            const std::string n = std::to_string(++number);
            state += "Condition" + n + "=Tag=" + (isA ? "245a" : "500a") + "\\\\||";
            state += "Position" + n + "=" + std::to_string(at) + "||";
        }
        ReplaceAll(text, kA, "");
        ReplaceAll(text, kB, "");
        return state + "Text=" + text + "||";
    }

    std::string Real() const {
        std::string text;
        edit.GetWindowTextA(text);
        return text;
    }
    std::string Shown() const {
        std::string text = Real();
        const auto anchor = static_cast<std::size_t>(box.anchor);
        const auto caret = static_cast<std::size_t>(box.caret);
        text.insert(std::max(anchor, caret), anchor < caret ? "|" : anchor == caret ? "" : "[");
        text.insert(std::min(anchor, caret), anchor < caret ? "[" : "|");
        return Short(text);
    }
    // The point in a character. A position is one in the whole text.
    zorby::ControlPoint At(int position) const { return box.GetPointOf(position); }

    zorby::MemoryClipboard clipboard;
    zorby::ClipboardInForce clipboardInForce{clipboard};
    zorby::RecordedSignals signals;
    zorby::SignalsInForce signalsInForce{signals};
    zorby::MemoryEdit box;
    zorby::CEditMARCAlphaGT edit{box};
};
