#include <quillory/coded/CodeStatus.h>
#include <quillory/coded/Decoder.h>
#include <quillory/coded/Material.h>
#include <quillory/edits/CodedChange.h>
#include <quillory/edits/NewCodedFields.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillory {
namespace {

using namespace zorby;
using State = EditSession::State;

const CodeLists& Lists() {
    static const CodeLists lists{CodeStatus(CODES_FILE)};
    return lists;
}

class CodedChange : public testing::Test {
protected:
    static void SetUpTestSuite() { CTemplateList::InitializeTemplateList(DATA_FOLDER); }

    static State Book() {
        return {"00000cam a2200000 a 4500",
                {{"008", "240101s2023    nyuabf jo     110 1aeng d", 0}}};
    }
    static State With(State state, std::optional<std::size_t> field, std::size_t first,
                      std::string_view value) {
        return WithCoded(std::move(state), field, first, value, Lists());
    }
};

TEST_F(CodedChange, ABookThatBecomesAnotherMaterialKeepsWhatMeansTheSame) {
    const State map = With(Book(), std::nullopt, 6, "e");
    EXPECT_EQ(map.leader, "00000cem a2200000 a 4500");
    const std::string& content = map.fields[0].content;
    EXPECT_EQ(content.substr(0, 18), Book().fields[0].content.substr(0, 18));
    EXPECT_EQ(content.substr(35), "eng d");
    EXPECT_EQ(content[29], 'o');  // form of item
    EXPECT_EQ(content.substr(18, 4), "    ");
    const State visual = With(Book(), std::nullopt, 6, "g");
    EXPECT_EQ(visual.fields[0].content[22], 'j');  // target audience
    EXPECT_EQ(visual.fields[0].content[29], 'o');
    const State serial = With(Book(), std::nullopt, 7, "s");
    EXPECT_EQ(serial.fields[0].content[23], 'o');
    EXPECT_EQ(serial.fields[0].content[29], '1');  // a conference
}

TEST_F(CodedChange, TheSameMaterialByAnotherLetterChangesNothingElse) {
    const State manuscript = With(Book(), std::nullopt, 6, "t");
    EXPECT_EQ(manuscript.fields, Book().fields);
    const State unknown = With(Book(), std::nullopt, 6, "?");
    EXPECT_EQ(unknown.fields, Book().fields);
    const State other = With(Book(), std::nullopt, 17, "7");
    EXPECT_EQ(other.fields, Book().fields);
}

TEST_F(CodedChange, AShortFieldIsFilledUpToThePlace) {
    State book = Book();
    book.fields[0].content.resize(30);
    EXPECT_EQ(With(book, 0, 35, "fre").fields[0].content, book.fields[0].content + "|||||fre");
    book.leader.resize(5);
    EXPECT_EQ(With(book, std::nullopt, 6, "a").leader, "00000 a");
}

TEST_F(CodedChange, A007HasTheLengthOfItsCategory) {
    State film = Book();
    film.fields.push_back({"007", "vd cvaizu", 1});
    const State sound = With(film, 1, 0, "s");
    EXPECT_EQ(sound.fields[1].content.size(), 14U);
    EXPECT_EQ(CategoryOf007(sound.fields[1].content), CF007Sound);
    const State back = With(sound, 1, 0, "v");
    EXPECT_EQ(back.fields[1].content.size(), 9U);
}

// Whatever materials come after each other, each field can be read by its own, and has its length.
TEST_F(CodedChange, EveryStepLeavesAFieldOfItsMaterial) {
    std::mt19937 random(20261122);
    const auto one = [&random](const auto& all) {
        return all[std::uniform_int_distribution<std::size_t>(0, all.size() - 1)(random)];
    };
    State record = Book();
    record.fields.push_back({"006", New006Fields(Lists()).front().content, 1});
    record.fields.push_back({"007", New007Fields(Lists()).front().content, 2});
    const Decoder decoder(Lists());
    for (int step = 0; step < 500; ++step) {
        const CFType form006 = one(FormsOf006());
        const CFType form007 = one(FormsOf007());
        record = With(record, std::nullopt, 6, std::string(1, one(std::string("acefgkmpr"))));
        record = With(record, 1, 0, std::string(1, FormLetters(form006).front()));
        record = With(record, 2, 0, std::string(1, FormLetters(form007).front()));
        SCOPED_TRACE(std::to_string(step) + ' ' + record.leader + ' ' + record.fields[0].content +
                     ' ' + record.fields[1].content + ' ' + record.fields[2].content);
        EXPECT_EQ(FormOfCoded(record, 1), form006);
        EXPECT_EQ(FormOfCoded(record, 2), form007);
        EXPECT_EQ(record.fields[0].content.size(), 40U);
        EXPECT_EQ(record.fields[1].content.size(), 18U);
        const auto decoded = decoder.Field007(record.fields[2].content);
        for (const DecodedElement& element : decoded.elements) {
            EXPECT_NE(element.state, ElementState::Missing) << element.name;
            EXPECT_NE(element.state, ElementState::Excess) << element.name;
        }
    }
}

TEST_F(CodedChange, WhatCanBeAddedIsValidInItsForm) {
    const Decoder decoder(Lists());
    const auto expectValid = [](const DecodedField& field, const NewCodedField& added) {
        SCOPED_TRACE(added.name + ": " + added.content);
        EXPECT_FALSE(added.name.empty());
        EXPECT_FALSE(FormName(field.form).empty());
        for (const DecodedElement& element : field.elements) {
            const bool isThere =
                element.state == ElementState::Coded || element.state == ElementState::Free;
            EXPECT_TRUE(isThere) << element.name << ' ' << element.text;
        }
    };
    const auto of006 = New006Fields(Lists());
    const auto of007 = New007Fields(Lists());
    EXPECT_GE(of006.size(), FormsOf006().size());
    EXPECT_GE(of007.size(), FormsOf007().size());
    for (const NewCodedField& field : of006) expectValid(decoder.Field006(field.content), field);
    for (const NewCodedField& field : of007) expectValid(decoder.Field007(field.content), field);
    EXPECT_EQ(New008Field("00000cem a2200000 a 4500").size(), 40U);
    EXPECT_EQ(New008Field("").size(), 40U);
}

}  // namespace
}  // namespace quillory
