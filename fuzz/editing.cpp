#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/MemoryEdit.h>
#include <zorby/platform/PortInForce.h>

#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr int kMostActs = 300;

// A field, and a person who does anything at all with it.
class Session {
public:
    explicit Session(FuzzedDataProvider& data) : data_(data) {
        box_.columns = data.ConsumeIntegralInRange(1, 50);
        edit_.SetLimitText(data.ConsumeIntegralInRange(0, 300));
        edit_.SetNextNumberCallback([this] { return Text(); });
    }

    void Play() {
        for (int acts = 0; data_.remaining_bytes() > 0 && acts < kMostActs; ++acts) {
            Act();
            Check();
        }
    }

private:
    std::string Text() { return data_.ConsumeRandomLengthString(40); }
    int Position() { return data_.ConsumeIntegralInRange(-3, 400); }
    ControlPoint Point() { return {Position(), Position()}; }
    std::string Real() const {
        std::string text;
        edit_.GetWindowTextA(text);
        return text;
    }

    void Act() {
        switch (data_.ConsumeIntegralInRange(0, 9)) {
            case 0:
                return UsePointer();
            case 1:
                return UseCommand();
            case 2:
                return UndoAndRedo();
            case 3:
                return Host();
            case 4:
                return edit_.AddCharFromButton(data_.ConsumeIntegralInRange(10120U, 10270U));
            case 5:
            case 6:
                return PressKey();
            default:
                return edit_.OnChar(data_.ConsumeIntegral<unsigned char>());
        }
    }

    void PressKey() {
        constexpr int kLastKey = static_cast<int>(EditKey::kZ);
        const auto key = static_cast<EditKey>(data_.ConsumeIntegralInRange(0, kLastKey));
        const bool shift = data_.ConsumeBool();
        const bool ctrl = data_.ConsumeBool();
        edit_.OnKeyDown({key, shift, ctrl});
    }

    void UsePointer() {
        const ControlPoint point = Point();
        switch (data_.ConsumeIntegralInRange(0, 4)) {
            case 0:
                return edit_.OnLButtonDown(point, data_.ConsumeBool());
            case 1:
                return edit_.OnLButtonUp(point);
            case 2:
                return edit_.OnLButtonDblClk(point);
            case 3:
                return edit_.OnMouseMove(point, data_.ConsumeBool());
            default:
                return edit_.SetSel(point.x, point.y);
        }
    }

    void UseCommand() {
        if (data_.ConsumeBool()) clipboard_.text = Text();
        const int command = data_.ConsumeIntegralInRange<int>(kEditUndo, kEditSelectAll);
        edit_.OnCmdMsg(command, CN_Clicked, kTreeRoot);
    }

    // Whatever was changed since the copy was made, undoing twice brings it back.
    void UndoAndRedo() {
        edit_.EditUndo();
        const std::string text = Real();
        edit_.EditUndo();
        edit_.EditUndo();
        Expect(Real() == text, "undo and redo take turns");
    }

    void Host() {
        switch (data_.ConsumeIntegralInRange(0, 5)) {
            case 0:
                return edit_.SetWindowTextA(Text());
            case 1:
                CSSetDisplayType(data_.ConsumeIntegralInRange(0, 3));
                return edit_.EnsureCorrectFont({.faceName = Text(), .height = Position()});
            case 2:
                return MarkWord();
            case 3:
                return edit_.ReplaceSelAndBufferMaint(Text(), 1);
            case 4:
                return edit_.OnVscroll();
            default:
                box_.text = Text();  // a toolkit that changes the text on its own
                return edit_.EditUndo();
        }
    }

    void MarkWord() {
        const int start = Position();
        edit_.SetSelInRed(start, Position(), Text());
    }

    void Check() const {
        const std::string text = Real();
        const int length = edit_.GetWindowTextLengthA();
        Expect(static_cast<int>(text.size()) == length, "a text is as long as it says");
        Expect(text.find('\0') == std::string::npos, "a text has no zero byte");
        Expect(box_.GetTextLength() == length, "both texts have one length");
        int first = 0;
        int last = 0;
        box_.GetSelection(first, last);
        Expect(0 <= first && first <= last && last <= length, "the selection is in the text");
    }

    FuzzedDataProvider& data_;
    MemoryClipboard clipboard_;
    ClipboardInForce inForce_{clipboard_};
    MemoryEdit box_;
    CEditMARCAlpha edit_{box_};
};

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    zorby::CSSetDisplayType(data.ConsumeIntegralInRange(0, 2));
    zorby::Session session(data);
    session.Play();
    return 0;
}
