// Builds one bibliographic record and writes it to standard output in ISO 2709.
//
//   cmake -B build && cmake --build build && build/build-record > record.mrc
//   c++ main.cpp $(pkg-config --cflags --libs zorby) -o build-record

#include <zorby/charset/Convert.h>
#include <zorby/record/Pmarc.h>

#include <iostream>
#include <string>
#include <string_view>

namespace {

constexpr unsigned kLeader = 0;

// Text comes in Latin-1, passes through the library's own code, and leaves in MARC-8.
std::string Marc8(std::string_view latin1) {
    std::string text(latin1);
    zorby::CSISO8859ToQm(text);
    zorby::CSZorbyToMARC(text);
    return text;
}

void AddControlFields(zorby::CPmarc& record) {
    record.FieldAddControlField(kLeader, 1, "     nam  22      a 4500", 0);
    record.FieldAddControlField(1, 1, "example-1", 0);
    record.FieldAddControlField(8, 1, "240101s1808    gw            000 1 ger d", 0);
}

void AddDataFields(zorby::CPmarc& record) {
    // A field with several elements: the first call makes it, the others add to it.
    record.AstaAdd(245, '1', '0', 'a', 1, Marc8("Faust :"));
    record.AstaAdd(245, '1', '0', 'b', 0,
                   Marc8("eine Trag\xF6"
                         "die /"));
    record.AstaAdd(245, '1', '0', 'c', 0, Marc8("von Goethe."));
    // Fields take their place in the order of tags, whenever they come.
    record.AstaAdd(100, '1', '_', 'a', 1, Marc8("Goethe, Johann Wolfgang von,"));
    record.AstaAdd(100, '1', '_', 'd', 0, "1749-1832.");
    // A separator makes one subfield of each piece.
    int occurrence = 0;
    record.FieldNew(653, occurrence);
    record.FieldAddSubfield(653, occurrence, 'a',
                            Marc8("Drama; M\xE4rchen; T\xFC"
                                  "binger"),
                            ';');
}

}  // namespace

int main() {
    zorby::CPmarc record;
    AddControlFields(record);
    AddDataFields(record);
    std::string bytes;
    record.ConvertToUSMARCCommFormat(bytes);
    std::cout << bytes << std::flush;
    return std::cout ? 0 : 1;
}
