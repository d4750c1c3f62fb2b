#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/platform/MemoryEdit.h>

#include <benchmark/benchmark.h>

#include <string>

namespace zorby::bench {
namespace {

// Aim: one keystroke in a text of 9,999 bytes, which is as long as a field can be, in under 20
// microseconds, with the copy that undo goes back to.
void Keystroke(benchmark::State& state, bool isNewRun) {
    CSSetDisplayType(kDisplaySIL);
    MemoryEdit box;
    CEditMARCAlpha edit(box);
    const int length = static_cast<int>(state.range(0));
    edit.SetWindowTextA(std::string(static_cast<std::size_t>(length), 'e'));
    bool isErasing = true;
    edit.SetSel(1, 1);
    for ([[maybe_unused]] auto _ : state) {
        if (isNewRun) edit.UndoStateClear();
        isErasing = !isErasing;
        edit.OnChar(isErasing ? 0x08 : 0xE6);
        benchmark::ClobberMemory();
    }
    CSSetDisplayType(kDisplayNone);
}

BENCHMARK_CAPTURE(Keystroke, in_a_run, false)->Arg(80)->Arg(9999);
BENCHMARK_CAPTURE(Keystroke, with_undo_copy, true)->Arg(80)->Arg(9999);

}  // namespace
}  // namespace zorby::bench
