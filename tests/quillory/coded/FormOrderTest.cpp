#include <quillory/coded/FormOrder.h>
#include <quillory/coded/Material.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace quillory {
namespace {

using namespace zorby;

std::vector<std::string> Usual(const Place& field, CFType form) {
    std::vector<std::string> names;
    for (const AskedElement& asked : ElementsAsked(field, form)) {
        if (asked.isUsual) names.push_back(asked.element->name);
    }
    return names;
}

// How often a form asks for each position of a field.
std::map<int, int> Counts(const Place& field, CFType form) {
    std::map<int, int> counts;
    for (const AskedElement& asked : ElementsAsked(field, form)) {
        const Place place = asked.In(field);
        for (int i = place.first; i <= place.last; ++i) ++counts[i];
    }
    return counts;
}

TEST(FormOrder, EveryPositionIsAskedForOnce) {
    const auto expectAll = [](const Place& field, CFType form, int length) {
        SCOPED_TRACE(std::string(field.Tag()) + ' ' + std::string(FormName(form)));
        const auto counts = Counts(field, form);
        EXPECT_EQ(static_cast<int>(counts.size()), length);
        for (const auto& [position, count] : counts) EXPECT_EQ(count, 1) << position;
        EXPECT_EQ(Usual(field, form).empty(), form == CF007Kit);
    };
    expectAll(Place::OfLeader(), CFLdr, 24);
    for (const CFType form : FormsOf006()) {
        expectAll(Place::OfField("006"), form, 18);
        expectAll(Place::OfField("008"), form, 40);
    }
    for (const CFType form : FormsOf007()) {
        expectAll(Place::OfField("007", 2), form, LengthOfForm(form));
    }
}

TEST(FormOrder, WhatTheMaterialAsksForComesFirst) {
    const auto book = Usual(Place::OfField("008"), CF006Books);
    ASSERT_GT(book.size(), 6U);
    EXPECT_EQ(book[0], "Type of date/Publication status");
    EXPECT_EQ(book[1], "Date 1");
    EXPECT_EQ(book[2], "Date 2");
    EXPECT_NE(std::find(book.begin(), book.end(), "Illustrations"), book.end());
    EXPECT_NE(std::find(book.begin(), book.end(), "Form of item"), book.end());
    EXPECT_EQ(std::find(book.begin(), book.end(), "Date entered on file"), book.end());
}

TEST(FormOrder, AnUnknownMaterialHasWhatAllHave) {
    const auto counts = Counts(Place::OfField("008"), CF006None);
    EXPECT_EQ(counts.count(35), 1U);
    EXPECT_EQ(counts.count(18), 0U);
}

}  // namespace
}  // namespace quillory
