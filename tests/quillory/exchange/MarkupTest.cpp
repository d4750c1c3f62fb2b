#include <quillory/exchange/Form.h>
#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/RecordWriter.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

namespace quillory {
namespace {

struct Found {
    ItemKind kind;
    std::string bytes, fault, id, place;
    Lines lines;
};

std::string LineColumnOf(const Item& item) {
    if (!item.fault || !item.fault->lineColumn) return {};
    const auto [line, column] = *item.fault->lineColumn;
    return std::to_string(line) + ":" + std::to_string(column);
}

std::vector<Found> ReadAll(const char* form, const std::string& bytes) {
    const TemporaryFile file(bytes);
    Input input(file.Path());
    const auto reader = FormNamed(form)->makeReader(input, false);
    std::vector<Found> all;
    std::string together;
    Item item;
    while (reader->Next(item)) {
        EXPECT_EQ(item.offset, together.size()) << form;
        together += item.bytes;
        const bool isRecord = item.kind == kItemRecord;
        all.push_back({item.kind, std::string(item.bytes), item.fault ? FaultText(*item.fault) : "",
                       isRecord ? std::string(item.record.ControlNumber()) : item.controlNumber,
                       LineColumnOf(item), isRecord ? LinesOf(item.record) : Lines{}});
    }
    EXPECT_EQ(together, bytes);
    return all;
}

// What is no frame: an id for each record, and the place and words of all else.
std::string Story(const std::vector<Found>& all) {
    std::string story;
    for (const Found& found : all) {
        if (found.kind == kItemFrame) continue;
        if (!story.empty()) story += " | ";
        story += found.id;
        if (found.kind == kItemRecord) continue;
        story += " " + found.place + " " + found.fault;
    }
    return story;
}

struct Written {
    std::string bytes;
    std::vector<WriteResult> results;
    Losses losses;
};

Written Write(const char* form, const std::vector<Lines>& records) {
    const TemporaryFile file;
    Written written;
    Output output(file.Path());
    const auto writer = FormNamed(form)->makeWriter(output, kOversizeRefuse);
    for (const Lines& lines : records) {
        written.results.push_back(writer->Write(TestRecord(lines).record, written.losses));
    }
    writer->Finish();
    output.Finish();
    written.bytes = file.Read();
    return written;
}

constexpr const char* kXml = "marcxml";
constexpr const char* kJson = "jsonl";

std::string XmlRecord(const std::string& id, const std::string& more = "") {
    return "<record><leader>" + kLeader + "</leader><controlfield tag=\"001\">" + id +
           "</controlfield>" + more + "</record>";
}

std::string Xml(const std::string& records) {
    return "<?xml version=\"1.0\"?>\n<collection>\n" + records + "\n</collection>\n";
}

TEST(MarcXml, WritesTheCustomaryLayout) {
    const Written written =
        Write(kXml, {{kLeaderLine, "001a<b>&\"", "FMTBK", "24510\037aTitle /\037cName.", "500  "}});
    EXPECT_EQ(written.bytes,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<collection xmlns=\"http://www.loc.gov/MARC21/slim\">\n"
              "  <record>\n"
              "    <leader>00000nam a2200000 a 4500</leader>\n"
              "    <controlfield tag=\"001\">a&lt;b&gt;&amp;&quot;</controlfield>\n"
              "    <controlfield tag=\"FMT\">BK</controlfield>\n"
              "    <datafield tag=\"245\" ind1=\"1\" ind2=\"0\">\n"
              "      <subfield code=\"a\">Title /</subfield>\n"
              "      <subfield code=\"c\">Name.</subfield>\n"
              "    </datafield>\n"
              "    <datafield tag=\"500\" ind1=\" \" ind2=\" \">\n"
              "    </datafield>\n"
              "  </record>\n"
              "</collection>\n");
    EXPECT_EQ(Write(kXml, {}).bytes,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<collection xmlns=\"http://www.loc.gov/MARC21/slim\">\n</collection>\n");
}

// What stands for a sign in XML, as far as it is not the sign itself.
std::string InXml(const std::string& sign) {
    const std::vector<std::pair<std::string, std::string>> others{{"<", "&lt;"},
                                                                  {">", "&gt;"},
                                                                  {"&", "&amp;"},
                                                                  {"\"", "&quot;"},
                                                                  {"\t", "&#9;"},
                                                                  {"\n", "&#10;"},
                                                                  {"\r", "&#13;"},
                                                                  {"\x01", "&amp;#x0001;"},
                                                                  {"\x80", "\uFFFD"},
                                                                  {"\xE2\x82", "\uFFFD\uFFFD"},
                                                                  {"\uFFFE", "&amp;#xFFFE;"}};
    for (const auto& [known, other] : others) {
        if (sign == known) return other;
    }
    return sign;
}

TEST(MarcXml, WritesAnySignAtAnyPlaceOfAText) {
    std::vector<std::string> signs{"\x01",   "\x80",   "\xE2\x82", "\u00e9", "\u20AC", "\U0001F600",
                                   "\uFFFD", "\uFFFE", "\t",       "\n",     "\r"};
    for (char c = ' '; c < 0x7F; ++c) signs.emplace_back(1, c);
    constexpr std::size_t kMost = 17;
    for (const std::string& sign : signs) {
        Lines record{kLeaderLine};
        std::string expected;
        for (std::size_t before = 0; before <= kMost; ++before) {
            const std::string lead(before, 'x');
            const std::string rest(kMost - before, 'y');
            std::string field = "500  \037a";
            field.append(lead).append(sign).append("\037b").append(lead).append(sign).append(rest);
            record.push_back(field);
            expected +=
                "    <datafield tag=\"500\" ind1=\" \" ind2=\" \">\n      <subfield code=\"a\">";
            expected.append(lead).append(InXml(sign));
            expected += "</subfield>\n      <subfield code=\"b\">";
            expected.append(lead).append(InXml(sign)).append(rest);
            expected += "</subfield>\n    </datafield>\n";
        }
        const std::string xml = Write(kXml, {record}).bytes;
        EXPECT_NE(xml.find("</leader>\n" + expected + "  </record>"), xml.npos) << xml;
    }
}

TEST(Subfields, ADelimiterNeedsACodeWhereverItStands) {
    constexpr std::size_t kMost = 40;
    for (std::size_t size = 1; size <= kMost; ++size) {
        for (std::size_t at = 0; at < size; ++at) {
            std::string content(size, 'x');
            content[at] = zorby::kDelimiter;
            EXPECT_EQ(HasEmptyCode(content), at + 1 == size) << size << " " << at;
            content.insert(at, 1, zorby::kDelimiter);
            EXPECT_TRUE(HasEmptyCode(content)) << size << " " << at;
        }
    }
    EXPECT_FALSE(HasEmptyCode(""));
}

TEST(MarcJson, WritesAnObjectALine) {
    const Lines record{kLeaderLine, "001a\"\\\037\n", "24510\037aT\u00e9\037cN."};
    EXPECT_EQ(Write(kJson, {record, {kLeaderLine}}).bytes,
              "{\"leader\":\"00000nam a2200000 a 4500\",\"fields\":["
              "{\"001\":\"a\\\"\\\\\\u001f\\n\"},"
              "{\"245\":{\"ind1\":\"1\",\"ind2\":\"0\",\"subfields\":[{\"a\":\"T\u00e9\"},"
              "{\"c\":\"N.\"}]}}]}\n"
              "{\"leader\":\"00000nam a2200000 a 4500\",\"fields\":[]}\n");
    EXPECT_EQ(Write(kJson, {}).bytes, "");
}

TEST(Markup, CountsWhatItCantCarry) {
    const Lines odd{kLeaderLine, "001a\007\xEF\xBF\xBF\xE9", "245\xC3 \037ax"};
    const Written xml = Write(kXml, {odd});
    EXPECT_NE(xml.bytes.find(">a&amp;#x0007;&amp;#xFFFF;\uFFFD<"), xml.bytes.npos) << xml.bytes;
    EXPECT_EQ(xml.losses.Text(""),
              "byte 0xE9 is no character, written as U+FFFD: 1\n"
              "byte 0xC3 is no indicator, written as a blank: 1\n"
              "U+0007 can't stand in XML, written as &#x0007;: 1\n"
              "U+FFFF (\xEF\xBF\xBF) can't stand in XML, written as &#xFFFF;: 1\n");
    const Written json = Write(kJson, {odd});
    EXPECT_NE(json.bytes.find("\"a\\u0007\xEF\xBF\xBF\uFFFD\""), json.bytes.npos) << json.bytes;
    EXPECT_TRUE(json.losses.Real());

    std::string badLeader = kLeaderLine;
    badLeader[3 + 6] = '\x02';
    std::string oldLeader = kLeaderLine;
    oldLeader.replace(3 + 20, 4, "4\x92 \xFF");
    for (const char* form : {kXml, kJson}) {
        SCOPED_TRACE(form);
        const Written written = Write(
            form, {{badLeader, "001x"}, {kLeaderLine, "245no indicators"}, {oldLeader, "001y"}});
        EXPECT_EQ(FaultText(written.results[0].faults.at(0)),
                  "leader/06: byte 0x02 is not a printable character");
        EXPECT_EQ(FaultText(written.results[1].faults.at(0)),
                  "245: not made of two indicators and subfields with codes");
        EXPECT_TRUE(written.results[2].written && written.results[2].leaderMended);
        EXPECT_EQ(Story(ReadAll(form, written.bytes)), "y");
    }
}

TEST(MarcXml, ReadsWhatOthersWrite) {
    const std::string slim = "http://www.loc.gov/MARC21/slim";
    const Lines expected{kLeaderLine, "001a", "24510\037aT\u00e9<\037b "};
    const std::string kRecord =
        "<m:record type='a>b' xmlns:m='" + slim + "'>\n <m:leader>00000nam  2200000 a 4500" +
        "</m:leader><!-- <record> --><m:controlfield tag='001'>a</m:controlfield>" +
        "<m:datafield ind2='0' ind1='1' tag='245'><m:subfield code='a'>T&#xe9;<![CDATA[<]]>" +
        "</m:subfield><?pi?><m:subfield code='b'> </m:subfield></m:datafield></m:record >";
    const std::string kDocuments[] = {
        kRecord,
        "\xEF\xBB\xBF" + kRecord + "\n<!-- end -->",
        Xml(kRecord),
        "<answer xmlns='urn:x'><record><header>h</header><metadata>" + kRecord +
            "</metadata></record></answer>",
        "<records><record><metadata>" + kRecord + "</metadata></record></records>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><!--\xE9-->" + kRecord,
        std::string(kRecord).replace(kRecord.find(slim), slim.size(),
                                     "info:lc/xmlns/marcxchange-v1"),
    };
    for (const std::string& document : kDocuments) {
        Lines found;
        for (const Found& item : ReadAll(kXml, document)) {
            if (item.kind == kItemRecord) found = item.lines;
        }
        EXPECT_EQ(found, expected) << document;
    }
}

// As where files were joined, or packed one after the other.
TEST(MarcXml, AnotherDocumentMayFollow) {
    const std::string one = Xml(XmlRecord("a"));
    const std::string long1 = Xml(XmlRecord(std::string(40000, 'l')));
    EXPECT_EQ(Story(ReadAll(kXml, one + "\n" + one)), "a | a");
    EXPECT_EQ(Story(ReadAll(kXml, one + one + "<!-- end -->" + one)), "a | a | a");
    const auto longs = ReadAll(kXml, long1 + long1 + one);
    EXPECT_EQ(std::ranges::count(longs, kItemRecord, &Found::kind), 3);
    EXPECT_TRUE(Story(ReadAll(kXml, one + "<?xml")).starts_with("a |  "));
    EXPECT_TRUE(Story(ReadAll(kXml, one + one.substr(0, one.find("<collection")) + "<collection>"))
                    .starts_with("a |  "));
    EXPECT_TRUE(Story(ReadAll(kXml, "<collection>" + one)).starts_with(" "));
    EXPECT_EQ(Story(ReadAll(kXml, Xml("") + one)), "a");
    EXPECT_TRUE(Story(ReadAll(kXml, Xml("") + "text")).starts_with(" ")) << "and comes to an end";
}

TEST(MarcXml, NamesWhatIsWrongAndGoesOn) {
    const std::string field = "<datafield tag=\"245\" ind1=\"1\" ind2=\"0\">";
    const auto sub = [](const std::string& attribute, const std::string& text) {
        return "<subfield" + attribute + ">" + text + "</subfield></datafield>";
    };
    const std::pair<std::string, std::string> kCases[] = {
        {"<record><controlfield tag=\"001\">b</controlfield></record>", "b 4:1 no leader"},
        {"<record/>", " 4:1 no leader"},
        {XmlRecord("b", "<leader>x</leader>"), "b 4:108 a second leader"},
        {XmlRecord("b", "<controlfield>x</controlfield>"), "b 4:120 a field without a tag"},
        {XmlRecord("b", "<controlfield tag=\"245\">x</controlfield>"),
         "b 4:130 245: a data field without subfields"},
        {XmlRecord("b", "<datafield tag=\"\u00e9x\" ind1=\"1\" ind2=\"2\"/>"),
         "b 4:1 ??x: a tag with bytes that no tag has"},
        {XmlRecord("b", "<datafield tag=\"24\" ind1=\"1\" ind2=\"2\"/>"),
         "b 4:90 a tag that is not of three bytes: 24"},
        {XmlRecord("b", "<datafield tag=\"245\" ind1=\"10\" ind2=\"0\"/>"),
         "b 4:90 245/1: an indicator that is not one character of ASCII"},
        {XmlRecord("b", field + sub("", "x")),
         "b 4:151 245: a subfield code that is not one character"},
        {XmlRecord("b", field + sub(" code=\"ab\"", "x")),
         "b 4:161 245: a subfield code that is not one character"},
        {XmlRecord("b", field + "text</datafield>"),
         "b 4:90 245: text outside of leader, control fields and subfields"},
        {XmlRecord("b", "<subfield>x</subfield>"), "b 4:90 an element that does not belong there"},
        {XmlRecord("b", "\n<leader><b>x</b></leader>"),
         "b 5:9 an element that does not belong there"},
    };
    for (const auto& [record, story] : kCases) {
        SCOPED_TRACE(record);
        const auto all = ReadAll(kXml, Xml(XmlRecord("a") + "\n" + record + "\n" + XmlRecord("c")));
        EXPECT_EQ(Story(all), "a | " + story + " | c");
        const auto damaged = std::find_if(
            all.begin(), all.end(), [](const Found& found) { return found.kind == kItemDamaged; });
        EXPECT_EQ(damaged->bytes, record);
    }
}

// What leaves no doubt is read and counted.
TEST(Markup, WhatOthersAddIsPassedOver) {
    using enum FaultCode;
    const std::string data =
        "<datafield tag=\"245\" ind1=\"@\" ind2=\"0\"><subfield code=\"a\">T</subfield>";
    const auto with = [&data](const std::string& indicator) {
        return std::string(data).replace(data.find('@'), 1, indicator) + "</datafield>";
    };
    const auto json = [](const std::string& indicator, const std::string& more) {
        return "{\"leader\":\"" + kLeader + "\"" + more +
               ",\"fields\":[{\"001\":\"b\"},{\"245\":{" + indicator +
               "\"ind2\":\"0\",\"subfields\":[{\"a\":\"T\"}]}}]}\n";
    };
    const std::string spaced = "<record><leader>\n  " + kLeader + "\n</leader>" +
                               "<controlfield tag='001'>b</controlfield>" + with("1") + "</record>";
    struct Case {
        const char* form;
        std::string text;
        std::string title;
        std::vector<FaultCode> notes, mends;
    };
    const Case kCases[] = {
        {kXml,
         XmlRecord("b", "<x:y xmlns:x='urn:x'>z<leader/></x:y>" + with("1")),
         "24510",
         {kForeignParts},
         {}},
        {kXml,
         XmlRecord("b", "<header><identifier>z</identifier></header>" + with("1")),
         "24510",
         {kForeignParts},
         {}},
        {kXml,
         XmlRecord("b", data.substr(0, data.size()).replace(data.find('@'), 1, "1") +
                            "<note>z</note></datafield>"),
         "24510",
         {kForeignParts},
         {}},
        {kXml, XmlRecord("b", with("")), "245 0", {kEmptyIndicators}, {}},
        {kXml, spaced, "24510", {kLeadersTrimmed}, {}},
        {kXml,
         "<record><leader>00000nam</leader>" + spaced.substr(spaced.find("<controlfield")),
         "24510",
         {kLeadersFilledUp},
         {}},
        {kXml, XmlRecord("b", with("\u00A0")), "245 0", {}, {kIndicatorForBlank}},
        {kJson,
         json("\"ind1\":\"1\",", ",\"x\":{\"fields\":[1,null,{\"a\":true}]},\"y\":\"z\""),
         "24510",
         {kForeignParts, kForeignParts},
         {}},
        {kJson, json("\"ind1\":\"1\",\"x\":[[]],", ""), "24510", {kForeignParts}, {}},
        {kJson, json("", ""), "245 0", {kEmptyIndicators}, {}},
        {kJson, json("\"ind1\":null,", ""), "245 0", {kEmptyIndicators}, {}},
        {kJson, json("\"ind1\":1,", ""), "24510", {}, {}},
        {kJson, json("\"ind1\":\"\u00E6\",", ""), "245 0", {}, {kIndicatorForBlank}},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.text);
        const TemporaryFile file(c.text);
        Input input(file.Path());
        const auto reader = FormNamed(c.form)->makeReader(input, false);
        Item item;
        ASSERT_TRUE(reader->Next(item));
        ASSERT_EQ(item.kind, kItemRecord);
        EXPECT_EQ(FieldsOf(item.record), "001b\n" + c.title + "$aT");
        EXPECT_EQ(item.notes, c.notes);
        EXPECT_EQ(item.isPartial, !c.mends.empty());
        EXPECT_EQ(item.fault.has_value(), !c.mends.empty());
        if (item.fault) {
            EXPECT_EQ(item.fault->code, c.mends.front());
        }
    }
}

TEST(MarcXml, EndsWhereItIsMalformed) {
    const std::string further = "; the file is read no further";
    const std::pair<std::string, std::string> kCases[] = {
        {Xml(XmlRecord("a") + XmlRecord("b", "</x>") + XmlRecord("c")),
         "malformed XML: Opening and ending tag mismatch"},
        {Xml(XmlRecord("a") + XmlRecord("b", "\x1B")), "malformed XML: PCDATA invalid Char"},
        {Xml(XmlRecord("a") + XmlRecord("b", "&x;")), "malformed XML: Entity 'x' not defined"},
        {Xml(XmlRecord("a") + XmlRecord("b", "\xE9 ")), "malformed XML: Input is not proper UTF-8"},
        {"<collection>" + XmlRecord("a"), "malformed XML: the document is cut short"},
        {Xml(XmlRecord("a")) + "<x/>", "malformed XML: Extra content"},
    };
    for (const auto& [document, reason] : kCases) {
        SCOPED_TRACE(reason);
        const auto all = ReadAll(kXml, document);
        const Found& last = all.back();
        EXPECT_TRUE(Story(all).starts_with("a | ")) << Story(all);
        EXPECT_EQ(last.kind, kItemDamaged);
        EXPECT_TRUE(last.fault.starts_with(reason)) << last.fault;
        EXPECT_TRUE(last.fault.ends_with(further)) << last.fault;
        EXPECT_NE(last.place, "");
    }
    const std::string laughs =
        "<!DOCTYPE c [<!ENTITY a \"lol\"><!ENTITY b \"&a;&a;\"><!ENTITY f SYSTEM "
        "\"/etc/passwd\">]>";
    EXPECT_TRUE(Story(ReadAll(kXml, laughs + Xml(XmlRecord("&b;&f;"))))
                    .starts_with(" 1:1 a document type (DOCTYPE)"));
    EXPECT_EQ(Story(ReadAll(kXml, "<mods/>")), "  XML that holds no MARC record");
    EXPECT_EQ(Story(ReadAll(kXml, "<collection/>")), "");
}

// After a first record, the next one may be read without the parser; a comment in it leaves it to
// the parser.
void ExpectTheSameByTheParser(const std::string& record) {
    constexpr std::string_view kComment = "<!---->";
    const std::size_t start = record.find('>') + 1;
    std::string commented = record;
    commented.insert(start, kComment);
    const auto plain = ReadAll(kXml, Xml(XmlRecord("first") + record + XmlRecord("c")));
    const auto parsed = ReadAll(kXml, Xml(XmlRecord("first") + commented + XmlRecord("c")));
    ASSERT_EQ(plain.size(), parsed.size()) << record;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        SCOPED_TRACE(record + " item " + std::to_string(i));
        EXPECT_EQ(plain[i].kind, parsed[i].kind);
        EXPECT_EQ(plain[i].fault, parsed[i].fault);
        EXPECT_EQ(plain[i].id, parsed[i].id);
        EXPECT_EQ(plain[i].lines, parsed[i].lines);
    }
}

TEST(MarcXml, ReadsTheSameWithAndWithoutTheParser) {
    const std::string field =
        "<datafield tag=\"245\" ind1=\"1\" ind2=\" \">\n <subfield code=\"a\">Title</subfield>\n "
        "<subfield code=\"c\">N&amp;N \u00E9\u4E2D\U0001F600</subfield>\n</datafield>\n";
    const std::string record = XmlRecord("b", field + field);
    ExpectTheSameByTheParser(record);
    EXPECT_EQ(ReadAll(kXml, Xml(XmlRecord("a") + record)).back().kind, kItemFrame);
    constexpr std::string_view kPieces[] = {"<",
                                            ">",
                                            "&",
                                            "]]>",
                                            "&lt;",
                                            "&#233;",
                                            "&x;",
                                            "\x1F",
                                            "\x1D",
                                            "\x7F",
                                            "\xFF",
                                            "\xC3",
                                            "\n",
                                            "\r",
                                            "\t",
                                            " ",
                                            "\"",
                                            "'",
                                            "/",
                                            "=",
                                            "x",
                                            "\xEF\xBF\xBE",
                                            "\xED\xA0\x80",
                                            "\xE0\x80\xA0",
                                            "<leader/>",
                                            "</record>",
                                            "<subfield code=\"x\"/>",
                                            "<![CDATA[&]]>",
                                            "<?p i?>",
                                            "ind1=\"2\" ",
                                            "xml:id=\"i\" ",
                                            "</subfield>",
                                            "<x/>",
                                            "marc:",
                                            "&amp;",
                                            "&apos;",
                                            "tag=\"1\" "};
    std::mt19937 random(11);
    for (int round = 0; round < 1500; ++round) {
        std::string damaged = record;
        const std::size_t at = 8 + random() % (damaged.size() - 17);
        const std::size_t size = random() % 3 == 0 ? random() % 9 : 0;
        damaged.replace(at, size, kPieces[random() % std::size(kPieces)]);
        ExpectTheSameByTheParser(damaged);
        if (HasFailure()) return;
    }
}

// The same with a prefix before each name of an element.
std::string Prefixed(std::string_view xml) {
    std::string prefixed;
    while (!xml.empty()) {
        const std::size_t size = xml.starts_with("</") ? 2 : 1;
        prefixed += xml.substr(0, size);
        if (xml.front() == '<') prefixed += "m:";
        xml.remove_prefix(size);
    }
    return prefixed;
}

// A prefix that stands for MARC in one document may stand for something else in the next one.
TEST(MarcXml, APrefixEndsWithItsDocument) {
    const std::string field =
        "<datafield tag=\"245\" ind1=\"1\" ind2=\" \"><subfield "
        "code=\"a\">T</subfield></datafield>";
    const std::string first = Prefixed(XmlRecord("a", field + field));
    const std::string second = XmlRecord("b", field) + XmlRecord("c", Prefixed(field + field));
    const auto all =
        ReadAll(kXml, "<?xml version=\"1.0\"?><m:collection xmlns:m=\"" +
                          std::string(kMarcXmlNamespace) + "\">" + first + first +
                          "</m:collection><?xml version=\"1.0\"?><collection xmlns:m=\"x\">" +
                          second + "</collection>");
    std::vector<std::size_t> lines;
    for (const Found& found : all) {
        if (found.kind == kItemRecord) lines.push_back(found.lines.size());
    }
    EXPECT_EQ(lines, (std::vector<std::size_t>{4, 4, 3, 2})) << Story(all);
}

// Lines and columns after records that needed no parser are those of the file.
TEST(MarcXml, PlacesAreThoseOfTheFile) {
    std::string records;
    for (int i = 0; i < 5; ++i) records += "\n" + XmlRecord("a", "\n");
    const auto faulty = ReadAll(kXml, Xml(records + "\n<record></record>"));
    EXPECT_TRUE(Story(faulty).ends_with(" 14:1 no leader")) << Story(faulty);
    const auto malformed = ReadAll(kXml, Xml(records + "\n<record>\n<leader>\n</record>"));
    EXPECT_NE(Story(malformed).find("leader line 15 and record"), std::string::npos)
        << Story(malformed);
}

TEST(MarcXml, MemoryIsBoundedWhateverComes) {
    const std::string much(std::size_t{9} << 20, 'x');
    const std::string kFrame(std::size_t{3} << 20, ' ');
    const auto long1 =
        ReadAll(kXml, Xml(XmlRecord("a") + kFrame + XmlRecord(much) + XmlRecord("c")));
    EXPECT_EQ(long1.back().kind, kItemFrame);
    std::string ids;
    for (const Found& found : long1) {
        EXPECT_LE(found.bytes.size(), std::size_t{5} << 20) << found.id;
        if (found.kind == kItemRecord) ids += found.id;
    }
    EXPECT_EQ(ids, "ac");
    const auto long2 = ReadAll(kXml, Xml(XmlRecord("a") + "<!--" + much));
    EXPECT_NE(Story(long2).find("a | "), std::string::npos);
    EXPECT_NE(Story(long2).find("over 4 MiB; the file is read no further"), std::string::npos);
}

std::string JsonRecord(const std::string& id) {
    return "{\"leader\":\"" + kLeader + "\",\"fields\":[{\"001\":\"" + id + "\"}]}";
}

TEST(MarcJson, ReadsRowsAndArraysAndLayouts) {
    const std::string laidOut =
        "{\n  \"fields\": [\n    {\n      \"001\": \"@\"\n    },\n    {\"245\": {\"subfields\": "
        "[{\"a\": \"}\\\"{\"}],\n \"ind2\": \"0\", \"ind1\": \"1\"}}\n  ],\n  \"leader\": \"" +
        kLeader + "\"\n}";
    const auto with = [&](char id) {
        std::string text = laidOut;
        text[text.find('@')] = id;
        return text;
    };
    const std::string a = JsonRecord("a");
    const std::string b = JsonRecord("b");
    const std::string kTexts[] = {
        a + "\n" + b,
        a + "\r\n\r\n" + b + " \n\n",
        a + b,
        "\xEF\xBB\xBF[" + a + "," + b + "]\n",
        "[\n " + a + ",\n " + b + "\n]",
        with('a') + "\n" + with('b') + "\n",
        "[" + with('a') + ", " + with('b') + "]",
        with('a') + b,
    };
    for (const std::string& text : kTexts) {
        EXPECT_EQ(Story(ReadAll(kJson, text)), "a | b") << text;
    }
    EXPECT_EQ(ReadAll(kJson, with('a'))[0].lines, (Lines{kLeaderLine, "001a", "24510\037a}\"{"}));
    EXPECT_EQ(Story(ReadAll(kJson, "[]")), "");
    EXPECT_EQ(Story(ReadAll(kJson, "[" + a + ",\n")),
              "a |  2:1 the array is not closed: the file is cut short");
}

TEST(MarcJson, NamesWhatIsWrongAndGoesOn) {
    const std::string kind = "a value of a kind that does not belong there";
    const std::string open = "{\"leader\":\"" + kLeader + "\",\"fields\":[";
    const std::pair<std::string, std::string> kCases[] = {
        {"no JSON", " 2:2 malformed JSON: syntax error while parsing value - invalid literal"},
        {"{\"fields\":[]}", " 2:1 no leader"},
        {"{}", " 2:1 no leader"},
        {"{\"leader\":7}", " 2:1 " + kind},
        {"{\"leader\":\"x\",\"leader\":\"y\"}", " 2:1 a second leader"},
        {open + "{\"001\":null}]}", " 2:1 " + kind},
        {open + "[]]}", " 2:1 " + kind},
        {open + "{\"245\":\"x\"}]}", " 2:1 245: a data field without subfields"},
        {open + "{\"245\":{\"ind1\":\"12\"}}]}",
         " 2:1 245/1: an indicator that is not one character of ASCII"},
        {open + "]} x", " 2:51 malformed JSON: syntax error while parsing value - invalid literal"},
        {open + "{\"001\":\"\xE9\"}]}",
         " 2:57 malformed JSON: syntax error while parsing value - invalid string: ill-formed "
         "UTF-8 byte"},
        {open + "{\"001\":\"b\"",
         "b 2:58 malformed JSON: syntax error while parsing object - unexpected end of input; "
         "expected '}'"},
        {open + "{\"001\":\"b}]}",
         " 2:60 malformed JSON: syntax error while parsing value - invalid string: missing "
         "closing "
         "quote"},
        {open + "{\"CAT\":{\"ind1\":\" \",\"ind2\":\" \",\"subfields\":[{\"a\":\"\\u001f\"}]}}]}",
         " 2:1 CAT: a delimiter (0x1F) in a subfield"},
        {open + "{\"001\":\"\\u001e\"}]}",
         "\036 2:1 001: a field or record terminator (0x1E, 0x1D) in the text"},
        {JsonRecord("b") + std::string("\0{", 2), "b 2:61 malformed JSON: a NUL byte"},
        {open + std::string(100000, '['),
         " 2:100048 malformed JSON: syntax error while parsing value - unexpected end of input; "
         "expected '[', '{', or a literal"},
    };
    for (const auto& [line, story] : kCases) {
        const auto all =
            ReadAll(kJson, JsonRecord("a") + "\n" + line + "\n" + JsonRecord("c") + "\n");
        EXPECT_EQ(Story(all), "a | " + story + " | c") << line.substr(0, 60);
    }
}

// In either form a sound record between damaged ones is found, as long as XML stays well-formed.
TEST(Markup, SoundRecordsSurviveRandomDamage) {
    std::mt19937 random(6);
    for (int round = 0; round < 200; ++round) {
        std::string text;
        std::string sound;
        for (char id = 'a'; id < 'g'; ++id) {
            std::string line = JsonRecord({&id, 1});
            if (random() % 3 == 0) {
                line[random() % line.size()] = "{}[]\",:\\ x"[random() % 10];
                if (random() % 2 == 0) line.resize(random() % line.size());
            }
            text += line + "\n";
            if (line == JsonRecord({&id, 1})) sound += id;
        }
        std::string found;
        for (const Found& item : ReadAll(kJson, text)) {
            if (item.kind == kItemRecord) found += item.id;
        }
        for (const char id : sound) EXPECT_NE(found.find(id), found.npos) << id << "\n" << text;
    }
}

}  // namespace
}  // namespace quillory
