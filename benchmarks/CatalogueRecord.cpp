#include <benchmarks/CatalogueRecord.h>

namespace zorby::bench {

const std::vector<FieldData>& CatalogueRecord() {
    // clang-format off
    static const std::vector<FieldData> fields{
        {1, "", {{0, "hz00041871"}}},
        {3, "", {{0, "XxHaL"}}},
        {5, "", {{0, "20190514093012.0"}}},
        {8, "", {{0, "180212s2018    au ab    b    001 0 eng d"}}},
        {10, "  ", {{'a', "  2018004871"}}},
        {20, "  ", {{'a', "9783000000119"}, {'q', "(hardcover)"}}},
        {20, "  ", {{'a', "9783000000126"}, {'q', "(electronic book)"}}},
        {40, "  ", {{'a', "XxHaL"}, {'b', "eng"}, {'e', "rda"}, {'c', "XxHaL"}, {'d', "XxHaB"}}},
        {41, "1 ", {{'a', "eng"}, {'h', "ger"}}},
        {43, "  ", {{'a', "e-au---"}, {'a', "e-hu---"}}},
        {50, " 4", {{'a', "HE669.A9"}, {'b', "H37 2018"}}},
        {82, "04", {{'a', "386.3/0943613"}, {'2', "23"}}},
        {100, "1 ", {{'a', "H\xE8" "aberle, Sophie,"}, {'d', "1961-"}, {'e', "author."}}},
        {240, "10", {{'a', "Lotsen am Strom."}, {'l', "English"}}},
        {245, "10", {{'a', "Harbour pilots of the upper river :"}, {'b', "navigation under two crowns, 1848-1871 /"}, {'c', "Sophie H\xE8" "aberle ; translated by Ruth Kov\xE2" "acs."}}},
        {246, "30", {{'a', "Navigation under two crowns"}}},
        {264, " 1", {{'a', "Wien :"}, {'b', "Verlag der Donauwarte,"}, {'c', "2018."}}},
        {264, " 4", {{'c', "\xC3" "2018"}}},
        {300, "  ", {{'a', "xiv, 312 pages :"}, {'b', "illustrations, maps ;"}, {'c', "24 cm"}}},
        {336, "  ", {{'a', "text"}, {'b', "txt"}, {'2', "rdacontent"}}},
        {337, "  ", {{'a', "unmediated"}, {'b', "n"}, {'2', "rdamedia"}}},
        {338, "  ", {{'a', "volume"}, {'b', "nc"}, {'2', "rdacarrier"}}},
        {490, "1 ", {{'a', "Studies in river history,"}, {'x', "0000-0019 ;"}, {'v', "volume 7"}}},
        {500, "  ", {{'a', "Maps on endpapers."}}},
        {504, "  ", {{'a', "Includes bibliographical references (pages 281-300) and index."}}},
        {505, "0 ", {{'a', "The guild and its charter -- Winter on the upper river -- Two flags on one tow path -- The steamers -- After the treaty."}}},
        {520, "  ", {{'a', "Follows four families of pilots through the years in which the river ceased to be a border, from their letters and the accounts of the guild."}}},
        {546, "  ", {{'a', "Translated from the German."}}},
        {600, "30", {{'a', "H\xE8" "aberle family."}}},
        {610, "20", {{'a', "Schifferzunft (Linz, Austria)"}, {'x', "History."}}},
        {650, " 0", {{'a', "River boats"}, {'z', "Danube River"}, {'x', "History"}, {'y', "19th century."}}},
        {650, " 0", {{'a', "Pilots and pilotage"}, {'z', "Austria"}, {'x', "History"}, {'y', "19th century."}}},
        {650, " 0", {{'a', "Inland navigation"}, {'z', "Danube River Valley."}}},
        {651, " 0", {{'a', "Danube River"}, {'x', "Navigation"}, {'x', "History."}}},
        {655, " 7", {{'a', "Personal correspondence."}, {'2', "lcgft"}}},
        {700, "1 ", {{'a', "Kov\xE2" "acs, Ruth,"}, {'e', "translator."}}},
        {710, "2 ", {{'a', "Verlag der Donauwarte,"}, {'e', "publisher."}}},
        {776, "08", {{'i', "Online version:"}, {'a', "H\xE8" "aberle, Sophie."}, {'t', "Harbour pilots of the upper river"}, {'z', "9783000000126"}}},
        {830, " 0", {{'a', "Studies in river history ;"}, {'v', "7."}}},
        {856, "42", {{'3', "Table of contents"}, {'u', "https://example.org/hz00041871/contents.pdf"}}},
    };
    // clang-format on
    return fields;
}

void AddField(const FieldData& field, CPmarc& record) {
    int occurrence = 0;
    record.FieldNew(field.tag, occurrence);
    const auto tag = static_cast<unsigned>(field.tag);
    if (field.indicators.empty()) {
        record.FieldAddControlField(tag, occurrence, field.subfields.front().second, 0);
        return;
    }
    record.FieldSetIndicators(tag, occurrence, field.indicators[0], field.indicators[1]);
    for (const auto& [code, text] : field.subfields) {
        record.FieldAddSubfield(tag, occurrence, code, text, 0);
    }
}

CPmarc BuildCatalogueRecord() {
    CPmarc record;
    int occurrence = 0;
    record.FieldAddControlField(0, occurrence, "00000cam  2200000 i 4500", 0);
    for (const FieldData& field : CatalogueRecord()) AddField(field, record);
    return record;
}

}  // namespace zorby::bench
