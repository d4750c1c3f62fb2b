#include <quillory/edits/EditSession.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

const Lines kMarc8{"LDR00000nam  2200000 a 4500", "001x", "24510\037aCaf\342e /\037cA.",
                   "650 0\037aRivers.", "650 0\037aLakes."};

Lines Given(EditSession& session) {
    Record record;
    Losses losses;
    session.Give(record, losses);
    return LinesOf(record);
}

TEST(EditSession, KeepsTheBytesOfWhatWasNotTouched) {
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    EXPECT_EQ(session.Now().fields[1].content, "10\037aCaf\u00E9 /\037cA.");
    EXPECT_EQ(Given(session), kMarc8);
    session.SetContent(1, "10\037aCaf\u00E9 /\037c\u00C9.");
    session.Remove(2);
    session.Insert(1, "100", "1 \037aA.");
    EXPECT_EQ(Given(session), (Lines{kMarc8[0], kMarc8[1], "1001 \037aA.",
                                     "24510\037aCaf\342e /\037c\342E.", kMarc8[4]}));
    session.Undo();
    session.Undo();
    session.Undo();
    EXPECT_FALSE(session.CanUndo());
    EXPECT_FALSE(session.IsChanged());
    EXPECT_EQ(Given(session), kMarc8);
}

TEST(EditSession, OneBurstIsOneStep) {
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    for (const char* text : {"10\037aC", "10\037aCa", "10\037aCaf"}) {
        session.SetContent(1, text, "245a");
    }
    session.SetContent(3, "  \037aX", "650a");
    session.Undo();
    EXPECT_EQ(session.Now().fields[1].content, "10\037aCaf");
    session.Undo();
    EXPECT_FALSE(session.CanUndo());
    session.Redo();
    EXPECT_EQ(session.Now().fields[1].content, "10\037aCaf");
}

TEST(EditSession, AStepThatItsGateRefusesIsNotMade) {
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    session.Remove(1);
    session.Remove(1);
    session.Undo();
    const RecordState before = session.Now();
    std::vector<std::size_t> wanted;  // fields of the records that were refused
    session.SetGate([&](const RecordState& state) {
        wanted.push_back(state.fields.size());
        return false;
    });
    const RecordState tried = session.Try([&] { session.Remove(0); });
    EXPECT_EQ(tried.fields.size(), 2U);
    EXPECT_TRUE(wanted.empty());
    session.Become(before);
    EXPECT_TRUE(wanted.empty());  // which is no step
    session.Undo();
    session.Redo();
    session.Insert(0, "100", "1 \037aA.");
    EXPECT_EQ(wanted, (std::vector<std::size_t>{4, 2, 4}));
    EXPECT_EQ(session.Now(), before);
    EXPECT_TRUE(session.CanUndo() && session.CanRedo());
}

TEST(EditSession, WhatWasSavedIsNoChange) {
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    session.Remove(3);
    session.MarkSaved();
    EXPECT_FALSE(session.IsChanged());
    session.Undo();
    EXPECT_TRUE(session.IsChanged());
    session.Redo();
    EXPECT_FALSE(session.IsChanged());
}

TEST(EditSession, LinesAndFieldsAreOneRecord) {
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    std::string lines = session.Lines();
    EXPECT_EQ(session.SetLines(lines), std::nullopt);
    EXPECT_FALSE(session.CanUndo());
    lines += "=500  \\\\$a\u00C9t\u00E9 costs {dollar}5.\n";
    EXPECT_EQ(session.SetLines(lines), std::nullopt);
    Lines expected = kMarc8;
    expected.push_back(
        "500  \037a\xE2"
        "Et\xE2"
        "e costs $5.");
    EXPECT_EQ(Given(session), expected);
    const auto before = session.Now();
    EXPECT_NE(session.SetLines(lines + "=24"), std::nullopt);
    const auto fault =
        session.SetLines("=LDR  00000nam a2200000 a 4500\n\n=001  x\n=50  \\\\$aTwo");
    EXPECT_EQ(fault.value().lineColumn.value().line, 4U);
    const auto first = session.SetLines(
        "=LDR  00000nam a2200000 a 4500\n=500  \\\\$aOne$$b\n=504  \\\\$aX\n=500  \\\\$aTwo");
    EXPECT_EQ(first.value().lineColumn.value().line, 2U);
    EXPECT_NE(session.SetLines(""), std::nullopt);
    EXPECT_NE(session.SetLines(lines + "\n" + lines), std::nullopt);
    EXPECT_EQ(session.Now(), before);
}

TEST(EditSession, NamesPlacesByOccurrence) {
    const TestRecord record(kMarc8);
    const EditSession session(record.record);
    EXPECT_EQ(PlaceOf(session.Now(), 3), Place::OfField("650", 2));
    EXPECT_EQ(FieldAt(session.Now(), Place::OfField("650", 2)), 3U);
    EXPECT_EQ(FieldAt(session.Now(), Place::OfField("650")), 2U);
    EXPECT_EQ(FieldAt(session.Now(), Place::OfField("651")), std::nullopt);
}

TEST(EditSession, SaysWhatNoFormCanHold) {
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    EXPECT_EQ(session.WhatIsWrong(true), std::nullopt);
    session.SetContent(1, "10\037a" + std::string(10000, 'x'));
    EXPECT_TRUE(session.WhatIsWrong(true));
    EXPECT_FALSE(session.WhatIsWrong(false));
    session.Undo();
    session.SetTag(1, "001");
    EXPECT_TRUE(session.WhatIsWrong(false));
}

// Whatever was done, all of it can be undone and done again.
TEST(EditSession, UndoesAndRedoesAnyWay) {
    std::mt19937 random(17);
    const auto below = [&random](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    const TestRecord record(kMarc8);
    EditSession session(record.record);
    std::vector<Lines> states{Given(session)};
    for (int step = 0; step < 200; ++step) {
        const std::size_t size = session.Now().fields.size();
        switch (size < 2 ? 2 : below(4)) {
            case 0:
                session.Remove(below(size));
                break;
            case 1:
                session.Move(below(size), below(size));
                break;
            case 2:
                session.Insert(below(size + 1), "500", "  \037a" + std::to_string(step));
                break;
            default:
                session.SetContent(below(size), "  \037a\u00E9" + std::to_string(step));
        }
        if (session.CanRedo()) FAIL() << "step " << step;
        states.push_back(Given(session));
    }
    std::size_t at = states.size() - 1;
    while (session.CanUndo()) {
        session.Undo();
        while (at > 0 && states[at] == states[at - 1]) --at;  // a move to its own place
        --at;
        EXPECT_EQ(Given(session), states[at]) << "state " << at;
    }
    EXPECT_EQ(Given(session), kMarc8);
    while (session.CanRedo()) session.Redo();
    EXPECT_EQ(Given(session), states.back());
}

}  // namespace
}  // namespace quillory
