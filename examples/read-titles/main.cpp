// Reads a file of records in ISO 2709 and prints their titles. Records that can't be read are
// named.
//
//   cmake -B build && cmake --build build && build/read-titles records.mrc
//   c++ main.cpp $(pkg-config --cflags --libs zorby) -o read-titles

#include <zorby/record/CommFormat.h>

#include <array>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace {

// The text of the first subfield with that code, or nothing.
std::string_view Subfield(std::string_view content, char code) {
    const std::array begin{zorby::kDelimiter, code};
    const std::size_t at = content.find(std::string_view(begin.data(), begin.size()));
    if (at == content.npos) return {};
    content.remove_prefix(at + begin.size());
    return content.substr(0, content.find(zorby::kDelimiter));
}

// Text is in the character set of the record: UTF-8 if the leader has an 'a' at
// kLeaderCharacterCode, otherwise MARC-8.
void PrintTitles(const zorby::CommFormatFields& record) {
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag == "245") std::cout << Subfield(field.content, 'a') << '\n';
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::ifstream file;
    if (argc == 2) file.open(argv[1], std::ios::binary);
    if (!file.is_open()) {
        std::cerr << "usage: read-titles FILE, which can be read\n";
        return 2;
    }
    int status = 0;
    zorby::CommFormatFields record;
    std::string bytes;
    for (int number = 1; std::getline(file, bytes, zorby::kRecordEnd); ++number) {
        if (!file.eof()) bytes += zorby::kRecordEnd;
        if (const zorby::CommFormatFault fault = zorby::ReadCommFormat(bytes, record)) {
            std::cerr << "record " << number << ", byte " << fault.offset << ": "
                      << zorby::CommFormatFaultText(fault.reason) << '\n';
            status = 1;
        } else {
            PrintTitles(record);
        }
    }
    return status;
}
