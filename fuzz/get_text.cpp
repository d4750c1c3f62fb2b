#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlphaGT.h>
#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/MemoryDialogs.h>
#include <zorby/platform/MemoryEdit.h>
#include <zorby/platform/PortInForce.h>

#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr int kMostActs = 300;

// A field of a global edit, and a person who does anything at all with it.
class Session {
public:
    explicit Session(FuzzedDataProvider& data) : data_(data) {
        box_.columns = data.ConsumeIntegralInRange(1, 50);
        edit_.Initialize(State(), true, nullptr);
    }

    void Play() {
        Check();
        for (int acts = 0; data_.remaining_bytes() > 0 && acts < kMostActs; ++acts) {
            Act();
            Check();
        }
    }

private:
    std::string Text() { return data_.ConsumeRandomLengthString(40); }
    int Position() { return data_.ConsumeIntegralInRange(-3, 200); }
    ControlPoint Point() { return {8 * Position(), 16 * data_.ConsumeIntegralInRange(-1, 9)}; }
    std::string Real() const {
        std::string text;
        edit_.GetWindowTextA(text);
        return text;
    }

    // A stored text, with fields of a record and of a copy, or anything.
    std::string State() {
        if (data_.ConsumeBool()) return data_.ConsumeRandomLengthString(200);
        std::string state;
        for (int i = 1; i <= data_.ConsumeIntegralInRange(0, 3); ++i) {
            const std::string number = std::to_string(i);
            const char* const item = data_.ConsumeBool() ? "245a" : "\\HLD206";
            state += "Condition" + number + "=Tag=" + item + "\\\\||";
            state += "Position" + number + "=" + std::to_string(Position()) + "||";
        }
        return state + "Text=" + Text() + "||";
    }

    void Act() {
        switch (data_.ConsumeIntegralInRange(0, 9)) {
            case 0:
                return UsePointer();
            case 1:
                return UseCommand();
            case 2:
                return UseDialog();
            case 3:
                return Host();
            case 4:
                return edit_.EditUndo();
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

    // Whether a field is made or changed depends on what is selected; a person may also give up.
    void UseDialog() {
        const bool isOk = data_.ConsumeBool();
        dialogs_.persons.push_back(
            [isOk](MemoryWindow& window) { isOk ? window.Ok() : window.Cancel(); });
        edit_.OnGetTextButton();
        dialogs_.persons.clear();
    }

    void Host() {
        switch (data_.ConsumeIntegralInRange(0, 5)) {
            case 0:
                return edit_.SetWindowTextA(Text());
            case 1:
                CSSetDisplayType(data_.ConsumeIntegralInRange(0, 3));
                return edit_.EnsureCorrectFont({.faceName = Text(), .height = Position()});
            case 2:
                return edit_.ReplaceSelAndBufferMaint(Text(), 1);
            case 3:
                return edit_.Initialize(State(), true, nullptr);
            case 4:
                return Process();
            default:
                return Restore();
        }
    }

    // For one record, the values in the places of the fields.
    void Process() {
        edit_.InitializeForProcessing(true);
        const auto fields = static_cast<int>(edit_.Fields().size());
        std::size_t size = Real().size();
        for (int i = 0; i < fields; ++i) {
            const std::string value = Text();
            const GetTextField& field = edit_.Fields()[static_cast<std::size_t>(i)];
            size += value.size() - field.description.size();
            edit_.SetGTSubfieldText(i, value);
            Expect(edit_.GetGTOnlyWhenState(i) != nullptr, "each field has its condition");
        }
        Expect(edit_.GetGTOnlyWhenState(fields) == nullptr, "there are no more fields");
        Expect(edit_.GetActualText().size() == size, "values take the places of descriptions");
    }

    // Two "|" side by side end a stored text, and so does a backslash before them.
    void Restore() {
        const std::string state = edit_.GetState();
        std::string text = Real();
        if (text.find_first_of("|\\") != text.npos) return;
        std::string restored;
        CEditMARCAlphaGT().Initialize(state, false, &restored);
        Expect(restored == text, "a stored text comes back");
    }

    void Check() const {
        const std::string text = Real();
        Expect(box_.GetTextLength() == static_cast<int>(text.size()), "both texts have one length");
        int first = 0;
        int last = 0;
        box_.GetSelection(first, last);
        Expect(0 <= first && first <= last && last <= box_.GetTextLength(),
               "the selection is in the text");
        int end = 0;
        for (const GetTextField& field : edit_.Fields()) {
            Expect(end <= field.position, "fields stand one after the other");
            end = field.End();
            Expect(text.compare(static_cast<std::size_t>(field.position), field.description.size(),
                                field.description) == 0,
                   "a field stands whole in the text");
        }
    }

    FuzzedDataProvider& data_;
    MemoryClipboard clipboard_;
    ClipboardInForce clipboardInForce_{clipboard_};
    MemoryDialogs dialogs_;
    DialogsInForce dialogsInForce_{dialogs_};
    MemoryEdit box_;
    CEditMARCAlphaGT edit_{box_};
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
