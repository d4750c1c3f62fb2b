#include <quillory/sets/StandardNumbers.h>

#include <gtest/gtest.h>

#include <string>

namespace quillory {
namespace {

struct NumberCase {
    std::string (*normal)(std::string_view text);
    std::string text;
    std::string expected;
};

TEST(StandardNumbers, EqualOnesAreEqualTexts) {
    const NumberCase kCases[] = {
        {NormalIsbn, "0306406152", "9780306406157"},
        {NormalIsbn, "0-306-40615-2 (pbk.) : $12.00", "9780306406157"},
        {NormalIsbn, "978-0-306-40615-7", "9780306406157"},
        {NormalIsbn, " 9780306406157", "9780306406157"},
        {NormalIsbn, "043942089x", "9780439420891"},
        {NormalIsbn, "043942089X :", "9780439420891"},
        {NormalIsbn, "9791034304455", "9791034304455"},
        {NormalIsbn, "0306406153", "0306406153"},  // a wrong check digit is kept apart
        {NormalIsbn, "9780306406158", "9780306406158"},
        {NormalIsbn, "v. 1", "v1"},
        {NormalIsbn, "", ""},
        {NormalIssn, "0378-5955", "03785955"},
        {NormalIssn, "2434-561x", "2434561x"},
        {NormalIssn, "odd", "odd"},
        {NormalSystemNumber, "(OCoLC)ocm00012345 ", "(ocolc)12345"},
        {NormalSystemNumber, "(OCoLC)12345", "(ocolc)12345"},
        {NormalSystemNumber, "(OCoLC)on1012345", "(ocolc)1012345"},
        {NormalSystemNumber, "(DLC)  00012345", "(dlc)00012345"},
        {NormalSystemNumber, "12345", "12345"},
        {NormalSystemNumber, "(OCoLC)", ""},
        {NormalLccn, "   85000002 ", "85000002"},
        {NormalLccn, "85-2 ", "85000002"},
        {NormalLccn, "2001-000002", "2001000002"},
        {NormalLccn, "75425165//r75", "75425165"},
        {NormalLccn, " 79139101 /AC/r932", "79139101"},
    };
    for (const NumberCase& one : kCases) EXPECT_EQ(one.normal(one.text), one.expected) << one.text;
}

}  // namespace
}  // namespace quillory
