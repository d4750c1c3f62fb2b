#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <tests/zorby/editing/GetTextEditing.h>
#include <vector>

using namespace zorby;

namespace {

// A text of characters and fields, each of which is one token, and what keys do with it.
struct Model {
    std::vector<std::string> tokens;
    std::size_t anchor = 0;
    std::size_t caret = 0;

    void Replace(const std::vector<std::string>& added) {
        const auto [first, last] = std::minmax(anchor, caret);
        const auto begin = tokens.begin() + static_cast<std::ptrdiff_t>(first);
        tokens.erase(begin, begin + static_cast<std::ptrdiff_t>(last - first));
        tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(first), added.begin(),
                      added.end());
        anchor = caret = first + added.size();
    }
    void Step(bool right, bool extend) {
        const std::size_t next = right ? std::min(caret + 1, tokens.size()) : caret - (caret > 0);
        const bool collapses = anchor != caret && !extend;
        caret = !collapses ? next : right ? std::max(anchor, caret) : std::min(anchor, caret);
        if (!extend) anchor = caret;
    }
    void Erase(bool right) {
        if (anchor == caret) Step(right, true);
        Replace({});
    }
    int BytesBefore(std::size_t count) const {
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < count; ++i) bytes += tokens[i].size();
        return static_cast<int>(bytes);
    }
    std::string Text() const {
        return std::accumulate(tokens.begin(), tokens.end(), std::string());
    }
};

class RandomGetText : public GetTextEditing {
protected:
    int Random(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    // The two texts are in step, and each field stands whole in the text.
    void ExpectSound() const {
        const std::string real = Real();
        ASSERT_EQ(box.GetTextLength(), static_cast<int>(real.size()));
        int end = 0;
        for (const GetTextField& field : edit.Fields()) {
            ASSERT_GE(field.position, end);
            ASSERT_EQ(
                real.substr(static_cast<std::size_t>(field.position), field.description.size()),
                field.description);
            for (const int position : {box.anchor, box.caret}) {
                ASSERT_TRUE(position <= field.position || position >= field.End())
                    << position << " in " << field.position << " to " << field.End();
            }
            end = field.End();
        }
    }

    std::mt19937 random{5};
};

TEST_F(RandomGetText, BehavesAsTextOfTokens) {
    clipboard.text = "pq";
    for (int round = 0; round < 60; ++round) {
        Model model;
        for (int i = Random(12); i > 0; --i) {
            const std::string tokens[] = {"x", "y", std::string(kA), std::string(kB)};
            model.tokens.push_back(tokens[Random(4)]);
        }
        Set(Short(model.Text()));
        for (int step = 0; step < 60; ++step) {
            const int action = Random(8);
            const bool right = Random(2) != 0;
            const bool extend = Random(2) != 0;
            SCOPED_TRACE(Shown() + " action " + std::to_string(action) + (right ? " right" : "") +
                         (extend ? " shift" : ""));
            if (action <= 2) {
                edit.OnKeyDown({right ? EditKey::kRight : EditKey::kLeft, extend});
                model.Step(right, extend);
            } else if (action == 3) {
                edit.OnChar('c');
                model.Replace({"c"});
            } else if (action == 4 && right) {
                edit.OnKeyDown({EditKey::kDelete});
                model.Erase(true);
            } else if (action == 4) {
                edit.OnChar('\b');
                model.Erase(false);
            } else if (action == 5 && right) {
                edit.OnKeyDown({EditKey::kV, false, true});
                model.Replace({"p", "q"});
            } else if (action == 6) {
                const std::size_t token = random() % (model.tokens.size() + 1);
                edit.OnLButtonDown(At(model.BytesBefore(token)), extend);
                model.caret = token;
                if (!extend) model.anchor = token;
            }
            ASSERT_EQ(Short(Real()), Short(model.Text()));
            ASSERT_EQ(box.caret, model.BytesBefore(model.caret));
            ASSERT_EQ(box.anchor, model.BytesBefore(model.anchor));
            ASSERT_EQ(edit.GetState(), StateOf(Real()));
            ExpectSound();
        }
    }
    EXPECT_TRUE(signals.sounds.empty()) << "the two texts differed";
}

TEST_F(RandomGetText, NoEventBreaksAField) {
    clipboard.text = "\xA4\xE6p";
    std::size_t most = 0;
    for (int round = 0; round < 40; ++round) {
        Set("ab{A}{B}e\xA4 d{A}f");
        for (int step = 0; step < 150; ++step) {
            const auto position = Random(box.GetTextLength() + 1);
            const int action = Random(16);
            SCOPED_TRACE(Shown() + " action " + std::to_string(action));
            const unsigned char keys[] = {'a', ' ', '^', '#', 0xA4, 0xAB, 0xE6, '\b', '\b', 0x1B};
            if (action <= 3) {
                edit.OnChar(keys[Random(10)]);
            } else if (action <= 8) {
                edit.OnKeyDown({static_cast<EditKey>(Random(18)), Random(3) == 0, Random(6) == 0});
            } else if (action == 9) {
                edit.OnLButtonDown(At(position), Random(3) == 0);
            } else if (action == 10) {
                edit.OnMouseMove(At(position), Random(3) != 0);
                edit.OnLButtonUp(At(position));
            } else if (action == 11 && Random(2) == 0) {
                CSSetDisplayType(CSInSIL() ? kDisplayANSI : kDisplaySIL);
                edit.EnsureCorrectFont(CFont{"Any", 8 + Random(4), 400, false, 0});
            } else if (action == 12) {
                dialogs.persons.push_back([this](MemoryWindow& window) {
                    window.Click(Random(2) == 0 ? "OK" : "Cancel");
                });
                edit.OnGetTextButton();
                dialogs.persons.clear();
            } else if (action == 13) {
                box.Select(position, Random(box.GetTextLength() + 1));  // by the host
                edit.OnChar('h');
            } else if (action == 14) {
                edit.EditUndo();
            } else {
                edit.OnCmdMsg(Random(2) == 0 ? kEditPaste : kEditClear, CN_Clicked, kTreeRoot);
            }
            ASSERT_NO_FATAL_FAILURE(ExpectSound());
            std::string restored;
            CEditMARCAlphaGT().Initialize(edit.GetState(), false, &restored);
            ASSERT_EQ(restored, Real());
            most = std::max(most, edit.Fields().size());
        }
    }
    EXPECT_GE(most, 3U);
}

}  // namespace
