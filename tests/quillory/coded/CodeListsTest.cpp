#include <quillory/coded/CodeLists.h>
#include <quillory/coded/ElementNames.h>
#include <quillory/coded/Material.h>
#include <quillory/coded/Places.h>
#include <quillory/exchange/Input.h>
#include <quillory/faults/FaultCode.h>
#include <zorby/elements/OffsetTables.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace quillory {
namespace {

using namespace zorby;

const std::string kHeader =
    "# A comment\nfield\tform\tpositions\telement\tcode\tstatus\tsince\tuntil\tuse\ttext\n";

std::string ErrorOf(const std::string& text) {
    try {
        CodeStatus().Add(text, "codes.tsv");
    } catch (const FileError& error) {
        return error.what();
    }
    return "";
}

TEST(CodeStatus, NamesTheLineThatDoesNotFit) {
    const std::pair<std::string, std::string> cases[] = {
        {"leader\tall\t05\tStatus\tx\tcurrent\t\t\t\tText", ""},
        {"leader\tall\t05\tStatus\tx\tcurrent\t\t\tText", "9 columns instead of 10"},
        {"leader\tall\t5\tStatus\tx\tcurrent\t\t\t\tText", "no position \"5\""},
        {"leader\tall\t05-06\tStatus\tx\tcurrent\t\t\t\tText",
         "no element has the positions \"05-06\""},
        {"leader\tbooks\t05\tStatus\tx\tcurrent\t\t\t\tText", "no form of its field \"books\""},
        {"007\tbooks\t05\tStatus\tx\tcurrent\t\t\t\tText", "no form of its field \"books\""},
        {"009\tall\t05\tStatus\tx\tcurrent\t\t\t\tText", "no coded field \"009\""},
        {"leader\tall\t05\tStatus\tx\tgone\t\t\t\tText", "no status \"gone\""},
        {"leader\tall\t05\tStatus\tx\tobsolete\t\t97\t\tText", "no year \"97\""},
        {"leader\tall\t05\tStatus\tx\tcurrent\t\t1997\t\tText",
         "an end or a successor of a code that is not obsolete"},
        {"leader\tall\t05\tStatus\t\tcurrent\t\t\t\tText", "no code"},
        {"leader\tall\t05\tStatus\tx\tcurrent\t\t\t\t", "no text"},
        {"leader\tall\t05\tStatus\tx\tcurrent\t\t\t\t\351", "the text is not UTF-8"},
    };
    for (const auto& [row, reason] : cases) {
        EXPECT_EQ(ErrorOf(kHeader + row), reason.empty() ? "" : "codes.tsv:3: " + reason) << row;
    }
    const std::string row = cases[0].first + "\n";
    EXPECT_EQ(ErrorOf(kHeader + row + row), "codes.tsv:4: a second row for code \"x\"");
    EXPECT_EQ(ErrorOf(row), "codes.tsv:1: the first row does not name the columns");
    EXPECT_THROW(CodeStatus("/no/such/file"), FileError);
}

TEST(CodeStatus, PrefersTheCodeInForce) {
    CodeStatus status;
    status.Add(kHeader + "008\tall\t15-17\tPlace\tai#\tobsolete\t\t\tam\tAnguilla\n" +
                   "leader\tall\t05\tStatus\tx\tcurrent\t\t\t\tText\n" +
                   "008\tall\t15-17\tPlace\tai#\tcurrent\t\t\t\tArmenia\n",
               "codes.tsv");
    EXPECT_EQ(status.Find(CF008Standard, 15)->Find("ai ")->text, "Armenia");
    EXPECT_EQ(status.Find(CF008Standard, 15)->Find("ai"), nullptr);
    EXPECT_EQ(status.Find(CF008Standard, 16), nullptr);
    EXPECT_EQ(status.Find(CFLdr, 5)->name, "Status");
}

// The library's lists and the published ones are of the same format: what the library has is in
// force or obsolete, but for codes of another service, and nothing is lost on either side.
TEST(CodeLists, HoldEveryCodeOfBothSides) {
    const CodeStatus status(CODES_FILE);
    const CodeLists lists{CodeStatus(CODES_FILE)};
    std::vector<CFType> forms = {CFLdr, CF008Standard};
    for (const auto& more : {FormsOf006(), FormsOf007()}) {
        forms.insert(forms.end(), more.begin(), more.end());
    }
    std::string unpublished;
    for (const CFType form : forms) {
        for (const Element& element : ElementsOf(form)) {
            for (const CFPart part : element.parts) {
                for (const ListedCode& listed : LibraryCodesOf(part)) {
                    const CodeMeaning code = lists.Find(element, listed.code);
                    EXPECT_NE(code.state, CodeState::Unknown) << part << " " << listed.code;
                    if (!code.published) unpublished += listed.code;
                }
            }
            const PublishedElement* published = status.Find(form, element.first);
            if (published == nullptr) continue;
            for (const PublishedCode& code : published->codes) {
                EXPECT_NE(lists.Find(element, code.code).state, CodeState::Unknown)
                    << published->name << " " << code.code;
            }
        }
    }
    EXPECT_EQ(unpublished, "iklmej");
}

// Elements lie one behind the other from the first position to the last.
TEST(Elements, CoverTheirForm) {
    for (const CFType form : {CFLdr, CF006Books, CF006MusicSound, CF006Visual, CF007Sound}) {
        int next = 0;
        for (const Element& element : ElementsOf(form)) {
            EXPECT_EQ(element.first, next) << form;
            EXPECT_FALSE(element.name.empty()) << form << " " << next;
            next = element.last + 1;
        }
        EXPECT_EQ(next, LengthOfForm(form)) << form;
    }
    EXPECT_EQ(LengthOfForm(CFLdr), 24);
    EXPECT_EQ(LengthOfForm(CF008Standard), 40);
    EXPECT_EQ(LengthOfForm(CF006Mixed), 18);
    EXPECT_EQ(LengthOfForm(CF007MotionPicture), 23);
    EXPECT_EQ(LengthOfForm(CF007TenByte), 0);
}

std::string Found(const std::string& text) {
    const NamedPlace place = FindPlace(text);
    if (place.fault) return "error: " + FaultText(place.fault);
    std::string found;
    std::set<std::string> said;
    for (const NamedElement& named : place.elements) {
        const std::string one =
            ElementPlaceText(*named.element, named.in008) + " " + named.element->name;
        if (said.insert(one).second) found += (found.empty() ? "" : ", ") + one;
    }
    return found;
}

TEST(Places, AreFoundAsCataloguersWriteThem) {
    const std::pair<const char*, const char*> cases[] = {
        {"leader/06", "leader/06 Type of record"},
        {"LDR/6", "leader/06 Type of record"},
        {"008/35", "008/35-37 Language"},
        {"008a/19", "008/18-21 Illustrations"},
        {"008a/18-22", "008/18-21 Illustrations, 008/22 Target audience"},
        {"008/16-17", "008/15-17 Place of publication"},
        {"006a/05", "006/05 Target audience"},
        {"006/00", "006/00 Form of material"},
        {"007c/01", "007/01 Specific material designation"},
        {"007h/07", "007/06-08 Reduction ratio"},
        {"part 310", "008/33 Literary form"},
        {"part 1702", "007/01 Specific material designation"},
        {"part 2601", "008/23 with 007h/01 Form of item, combined"},
        {"008/40", "error: 008: its positions are 00-39"},
        {"007s/14", "error: 007s: its positions are 00-13"},
        {"006/18", "error: 006: its positions are 00-17"},
        {"007x/01", "error: 007: there is no form x; the forms are a c d f g h k m o q r s t v z"},
        {"part 102", "error: there is no part 102; such parts are 16, 107, 310 and 1702"},
        {"part 99999999999",
         "error: there is no part 99999999999; such parts are 16, 107, 310 and 1702"},
    };
    for (const auto& [text, found] : cases) EXPECT_EQ(Found(text), found) << text;
    for (const char* text :
         {"008/", "008/a", "008[2]/05", "008/5-3", "008/1-", "leader06", "007cc/01", "009/1"}) {
        EXPECT_EQ(FindPlace(text).fault.code, FaultCode::kNoCodedPlace) << text;
    }
    EXPECT_EQ(FindPlace("007v").elements.size(), 9u);
    EXPECT_FALSE(IsCodedPlace("008"));
    EXPECT_FALSE(IsCodedPlace("245/1"));
}

}  // namespace
}  // namespace quillory
