#include <quillory/exchange/Form.h>
#include <quillory/exchange/MarcReader.h>
#include <quillory/exchange/Microlif.h>
#include <quillory/exchange/Mrk.h>
#include <quillory/exchange/Output.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

namespace quillory {
namespace {

std::string BookOf(const std::string& id, const std::string& title) {
    return MarcOf({"001" + id, "24510\037a" + title});
}

struct Found {
    ItemKind kind;
    std::string bytes;
    std::string id;
    std::string fault;
    std::uint64_t number;
    std::uint64_t offset;
};

std::string FaultOf(const Item& item) {
    return item.fault ? FaultText(*item.fault) : "";
}

std::vector<Found> ReadAll(const char* form, const std::string& bytes, bool lenient = false) {
    const TemporaryFile file(bytes);
    Input input(file.Path());
    const auto reader = FormNamed(form)->makeReader(input, lenient);
    std::vector<Found> all;
    Item item;
    while (reader->Next(item)) {
        all.push_back({item.kind, std::string(item.bytes), std::string(item.record.ControlNumber()),
                       FaultOf(item), item.number, item.offset});
    }
    return all;
}

std::string Kinds(const std::vector<Found>& all) {
    std::string kinds;
    for (const Found& found : all) kinds += "RDSF"[found.kind];
    return kinds;
}

TEST(MarcReader, NamesWhatItFinds) {
    const std::string a = BookOf("a", "First");
    const std::string b = BookOf("b", "Second");
    std::string wrongLength = a;
    wrongLength[4] = '0';
    const std::string blankLength = "     " + a.substr(5);
    struct Case {
        std::string bytes;
        std::string kinds, lenientKinds;
    };
    const Case kCases[] = {
        {"", "", ""},
        {a + b, "RR", "RR"},
        {"\xEF\xBB\xBF" + a + "\r\n" + b + "\n", "FRFRF", "FRFRF"},
        {a + std::string("\0\x1A ", 3) + b, "RFR", "RFR"},
        {a + "\x1D\n" + b, "RSR", "RSR"},
        {wrongLength + b, "DR", "RR"},
        {a + "some words" + b, "RSR", "RSR"},
        {a + b.substr(0, 40), "RD", "RD"},
        {a + "00010" + b, "RSR", "RSR"},
        {"no MARC at all", "D", "D"},
        {wrongLength + "text" + b, "DSR", "RSR"},
        {a.substr(0, a.size() - 1), "D", "R"},
        {a + "  " + blankLength + b, "RFDR", "RFRR"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(Kinds(ReadAll("marc", c.bytes)), c.kinds) << c.bytes;
        EXPECT_EQ(Kinds(ReadAll("marc", c.bytes, true)), c.lenientKinds) << c.bytes;
    }
}

// Whatever lies between them, sound records survive, and every byte is in some item, in order.
TEST(MarcReader, SoundRecordsSurviveRandomDamage) {
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        std::string bytes;
        std::vector<std::string> ids;
        for (int i = 0; i < 6; ++i) {
            std::string record = BookOf("id" + std::to_string(i), std::string(random() % 50, 'x'));
            if (random() % 3 == 0) {  // damage in its leader or directory, or it is cut at its end
                record[random() % 40] = "x\x1E\x1F\xFF"[random() % 4];
            } else {
                ids.push_back("id" + std::to_string(i));
            }
            bytes += record;
            for (std::size_t j = random() % 3; j > 0; --j) bytes += "\n x0\x1A"[random() % 5];
        }
        std::string together;
        std::vector<std::string> found;
        for (const Found& item : ReadAll("marc", bytes)) {
            EXPECT_EQ(item.offset, together.size());
            together += item.bytes;
            if (item.kind == kItemRecord) found.push_back(item.id);
        }
        ASSERT_EQ(together, bytes);
        for (const std::string& id : ids) {
            EXPECT_NE(std::find(found.begin(), found.end(), id), found.end()) << id;
        }
    }
}

TEST(MarcReader, EndlessDamageIsOneRecordInPieces) {
    const std::string bytes =
        std::string(std::size_t{9} << 20, 'x') + "\x1D" + BookOf("z", "After");
    const auto all = ReadAll("marc", bytes);
    ASSERT_EQ(Kinds(all), "DDDR");
    EXPECT_EQ(all[2].number, 1U);
    EXPECT_EQ(all[3].number, 2U);
    EXPECT_EQ(all[0].bytes.size() + all[1].bytes.size() + all[2].bytes.size() + all[3].bytes.size(),
              bytes.size());
}

TEST(Mrk, ReadsAndWritesTheCustomaryForm) {
    const Lines lines{"LDR00000nam a2200000 i 4500", "001a 1\\",
                      "24510\037aTitle ${}\\ /\037cName.", "9XXany\x1Fthing", "500  "};
    const std::string mrk =
        "=LDR  00000nam\\a2200000\\i\\4500\n"
        "=001  a\\1{bsol}\n"
        "=245  10$aTitle {dollar}{lcub}{rcub}\\ /$cName.\n"
        "=9XX  any$thing\n"
        "=500  \\\\\n\n";
    std::string written;
    AppendMrk(TestRecord(lines).record, written);
    EXPECT_EQ(written, mrk);

    const std::string variants =
        "\n=LDR  00000nam a2200000 i 4500\r\n=001  a 1{bsol}\r\n"
        "=245  10$aTitle {dollar}{lcub}{rcub}\\ /$cName.\r\n=9XX  any$thing\r\n=500  # \r\n"
        "=LDR  00000nam\\a2200000\\i\\4500\n=001  b";
    const TemporaryFile file(variants);
    Input input(file.Path());
    MrkReader reader(input);
    Item item;
    ASSERT_TRUE(reader.Next(item));
    ASSERT_EQ(item.kind, kItemRecord) << FaultOf(item);
    EXPECT_EQ(LinesOf(item.record), lines);
    ASSERT_TRUE(reader.Next(item));
    EXPECT_EQ(item.record.ControlNumber(), "b");
    EXPECT_FALSE(reader.Next(item));
}

TEST(Mrk, NamesBadLines) {
    const std::pair<std::string, std::string> kCases[] = {
        {"=245  10$aNo leader\n", "no line for the leader (=LDR)"},
        {"=LDR  x\n245  10$aText\n", "a line that does not begin with = and a tag"},
        {"=LDR  x\n=245  1\n", "245: a data field without two indicators"},
        {"=LDR  x\n=245  {1F}1$aText\n", "245: a delimiter (0x1F) as an indicator"},
        {"=LDR  x\n=245  1\x1F$aText\n", "245: a delimiter (0x1F) as an indicator"},
        {"=LDR  x\n=245  10Text\n", "245: text before the first subfield ($)"},
        {"=LDR  x\n=245  10$aText$\n", "245: a delimiter ($) without a subfield code"},
        {"=LDR  x\n=245  10$aText$$b\n", "245: a delimiter ($) without a subfield code"},
        {"=LDR  x\n=001  a\n=LDR  y\n", ""},
        {"=LDR  x\n=245  {acute}", "245: a data field without two indicators"},
        {"=LDR  x\n=245  10$aA{1E}B\n",
         "245: a field or record terminator (0x1E, 0x1D) in the text"},
        {"=LDR  x\n=245  10$aA\x1F\x1F\n", "245: a delimiter (0x1F) without a subfield code"},
        {"=LDR  0123456789012345678901234\n", "a leader of over 24 bytes"},
        {"=LDR  {1D}\n=001  a\n", "leader: a field or record terminator (0x1E, 0x1D) in the text"},
        {"=LDR  x\n=2 5  10$aA\n", "2 5: a tag with bytes that no tag has"},
    };
    for (const auto& [text, fault] : kCases) {
        const auto all = ReadAll("mrk", text + "\n=LDR  y\n=001  next\n");
        ASSERT_GE(all.size(), 2U) << text;
        EXPECT_EQ(all[0].fault, fault) << text;
        EXPECT_EQ(all.back().id, "next") << text;
    }
}

// Any content survives the line form; text without its signs survives old MicroLIF.
TEST(LineForms, RandomRecordsComeBack) {
    std::mt19937 random(5);
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        Lines lines{"LDR00000nam a2200000 i 4500"};
        for (int i = 0; i < 5; ++i) {
            const bool control = random() % 3 == 0;
            std::string text = control ? "008" : random() % 4 == 0 ? "CAT" : "59012\037a";
            for (std::size_t j = random() % 20; j > 0; --j) {
                const char c = static_cast<char>(random() % 256);
                const bool structural = c == '\x1D' || c == '\x1E' || (c == '\x1F' && !control);
                text += structural ? '$' : c;
            }
            lines.push_back(text);
        }
        std::string mrk;
        AppendMrk(TestRecord(lines).record, mrk);
        const TemporaryFile file(mrk);
        Input input(file.Path());
        MrkReader reader(input);
        Item item;
        ASSERT_TRUE(reader.Next(item));
        ASSERT_EQ(item.kind, kItemRecord) << FaultOf(item) << mrk;
        ASSERT_EQ(LinesOf(item.record), lines);
        EXPECT_FALSE(reader.Next(item));

        bool carried = true;
        for (const auto& field : item.record.fields) {
            carried = carried && MicrolifLosses(field).empty() &&
                      field.content.find_first_of("\x1D\x1E\x1F", field.IsControlField() ? 0 : 3) ==
                          std::string_view::npos;
        }
        if (!carried) continue;
        std::string microlif;
        AppendMicrolif(TestRecord(lines).record, microlif);
        const TemporaryFile lif(microlif);
        Input lifInput(lif.Path());
        MicrolifReader lifReader(lifInput);
        ASSERT_TRUE(lifReader.Next(item));
        auto back = LinesOf(item.record);
        back[0].replace(3, 5, "00000");
        for (const std::string& line : lines) {
            if (line.size() == 3) continue;
            EXPECT_NE(std::find(back.begin(), back.end(), line), back.end()) << line;
        }
    }
}

TEST(Microlif, ReadsWhatOthersWrite) {
    const std::string one = "LDR00999nam  22     2  4500^@008a_b^@245 0_aAbout whales.^`@";
    for (const std::string lineEnd : {"\r\n", "\n", "\r"}) {
        SCOPED_TRACE(testing::PrintToString(lineEnd));
        std::string text = lineEnd == "\r" ? "HDRsome maker@" : "header 20 rec MicroLIF file  @";
        text.append(one).append(one);
        for (std::size_t at = text.find('@'); at != text.npos; at = text.find('@')) {
            text.replace(at, 1, lineEnd);
        }
        const TemporaryFile file(text);
        Input input(file.Path());
        MicrolifReader reader(input);
        Item item;
        ASSERT_TRUE(reader.Next(item));
        EXPECT_EQ(FaultOf(item), "file header");
        EXPECT_EQ(item.kind, kItemFrame);
        for (int i = 0; i < 2; ++i) {
            SCOPED_TRACE(i);
            ASSERT_TRUE(reader.Next(item));
            ASSERT_EQ(item.kind, kItemRecord) << FaultOf(item);
            EXPECT_EQ(LinesOf(item.record),
                      (Lines{"LDR00999nam  22     2  4500", "008a_b", "245 0\037aAbout whales."}));
        }
        EXPECT_FALSE(reader.Next(item));
    }
    EXPECT_EQ(MicrolifLosses({"CAT", "a_b\r^`"}), "_\r^`");
    EXPECT_EQ(MicrolifLosses({"008", "a_b\037c"}), "\037");
    EXPECT_EQ(ReadAll("microlif", "245 0_aNo head^`\r\n")[0].fault, "no line for the leader (LDR)");
    EXPECT_EQ(ReadAll("microlif", "LDRx^\r\n245 0Text^`\r\n")[0].fault,
              "245: no two indicators before the first delimiter (_)");
}

// What stands before the first head is a header or damage, and no part of the leader.
TEST(Microlif, TagsAndTheLeaderAreWhatTheLinesSay) {
    const std::string head = "LDR00000nam  22     2  4500^\r\n";
    struct Case {
        std::string text, kinds, fields;
    };
    const Case kCases[] = {
        {head + "RAZ12_a123_bx^\r\n001id^`\r\n", "R", "RAZ12$a123$bx\n001id"},
        {head + "2x5a_b^\r\n001id^`\r\n", "R", "2x5a$b\n001id"},
        {head + "000zero^\r\n001id^`\r\n", "R", "000zero\n001id"},
        {"000zero^\r\n001id^`\r\n", "D", ""},
        {"12345 words\r\n" + head + "001id^`\r\n", "DR", "001id"},
        {"Header of words^\r\n" + head + "001id^`\r\n", "DR", "001id"},
        {head + "001id^`\r\nheader 1\r\n" + head + "001id^`\r\n", "RFR", "001id"},
        {"HEADER" + std::string(74, ' ') + head + "001id^`\r\n", "FR", "001id"},
        {"HEADER" + std::string(73, ' ') + head + "001id^`\r\n", "D", ""},
        {head + "24?10_ax^\r\n001id^`\r\n", "D", ""},
        {head + "\r\n001id^`\r\n\x1A", "RF", "001id"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Kinds(ReadAll("microlif", c.text)), c.kinds);
        const TemporaryFile file(c.text);
        Input input(file.Path());
        MicrolifReader reader(input);
        for (Item item; reader.Next(item);) {
            if (item.kind != kItemRecord) continue;
            EXPECT_EQ(FieldsOf(item.record), c.fields);
            EXPECT_TRUE(item.record.leader.starts_with("00000nam"));
        }
    }
}

// The names of the published table, in both character sets, and back.
TEST(Mrk, MnemonicsAreReadAndWritten) {
    struct Case {
        std::string mrk, marc8, utf8;
        std::size_t unknown;
    };
    const Case kCases[] = {
        {"{Lstrok}{acute}od{acute}z", "\xA1\xE2od\xE2z", "\u0141\u00F3d\u017A", 0},
        {"{eacute}t{Aring}",
         "\xE2"
         "et\xEA"
         "A",
         "\u00E9t\u00C5", 0},
        {"{uml}{macr}u", "\xE8\xE5u", "\u01D6", 0},
        {"{llig}i{rlig}a{softsign}",
         "\xEBi\xEC"
         "a\xA7",
         "i\u0361a\u02B9", 0},
        {"{C3} {num}{pound}{7A}", "\xC3 #\xB9z", "\u00A9 #\u00A3z", 0},
        {"{foo} {Acute} {}", "{foo} {Acute} {}", "{foo} {Acute} {}", 2},
        {"{YAcy}{sup2}",
         "\xEBI\xEC"
         "A\x1Bp2\x1Bs",
         "I\u0361A\u00B2", 0},
    };
    for (const Case& c : kCases) {
        for (const bool isUtf8 : {false, true}) {
            SCOPED_TRACE(c.mrk + (isUtf8 ? " in UTF-8" : " in MARC-8"));
            const std::string leader = isUtf8 ? "00000nam a2200000" : "00000nam  2200000";
            const TemporaryFile file("=LDR  " + leader + "\n=500  {num}#$a" + c.mrk + "\n\n");
            Input input(file.Path());
            MrkReader reader(input);
            Item item;
            ASSERT_TRUE(reader.Next(item));
            ASSERT_EQ(item.kind, kItemRecord) << FaultOf(item);
            EXPECT_EQ(item.record.fields[0].content, "# \037a" + (isUtf8 ? c.utf8 : c.marc8));
            EXPECT_EQ(item.notes.size(), c.unknown);

            const TemporaryFile again;
            Output output(again.Path());
            const auto writer = FormNamed("mrk")->makeWriter(output, {kOversizeRefuse, true});
            Losses losses;
            writer->Write(item.record, losses);
            output.Finish();
            const std::string written = again.Read();
            EXPECT_TRUE(std::ranges::all_of(written, [](char b) { return b > 0; }) || isUtf8)
                << written;
            Input back(again.Path());
            MrkReader backReader(back);
            Item backItem;
            ASSERT_TRUE(backReader.Next(backItem));
            EXPECT_EQ(LinesOf(backItem.record), LinesOf(item.record)) << written;
        }
    }
}

TEST(Form, IsFoundByContentAndName) {
    const std::pair<std::string, const char*> kContents[] = {
        {"\r\n00026nam", "marc"},
        {"LDR00123", "microlif"},
        {"=LDR  000", "mrk"},
        {"=245  10$a", "mrk"},
        {" <record>", "marcxml"},
        {"\xEF\xBB\xBF{", "jsonl"},
        {"[{", "jsonl"},
        {"=", nullptr},
        {"header 20 rec", "microlif"},
        {std::string(5000, '\n') + "<a>", "marcxml"},
        {"\xFF\xD8\xFF", nullptr},
        {"", nullptr},
    };
    for (const auto& [content, form] : kContents) {
        const TemporaryFile file(content);
        Input input(file.Path());
        EXPECT_EQ(FormOfContent(input), form == nullptr ? nullptr : FormNamed(form)) << content;
    }
    EXPECT_EQ(FormOfFileName("dir.mrk/a.MRC.gz"), FormNamed("marc"));
    EXPECT_EQ(FormOfFileName("a.lif"), FormNamed("microlif"));
    EXPECT_EQ(FormOfFileName("a.txt"), nullptr);
    EXPECT_EQ(FormOfFileName("marc"), nullptr);
    EXPECT_EQ(FormNamed("marc21"), nullptr);
    EXPECT_EQ(FormNamed("xml"), FormNamed("marcxml"));
    EXPECT_EQ(FormNamed(""), nullptr);
}

}  // namespace
}  // namespace quillory
