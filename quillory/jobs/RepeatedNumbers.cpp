#include <quillory/jobs/RepeatedNumbers.h>
#include <quillory/sets/Packing.h>

#include <string>

namespace quillory {
namespace {

using Where = RepeatedNumbers::Where;

void AppendWhere(const Where& where, std::string& packed) {
    AppendNumber(where.index, packed);
    AppendNumber(where.file, packed);
    AppendNumber(where.number, packed);
}

Where TakeWhere(std::string_view& packed) {
    const std::uint64_t index = TakeNumber(packed);
    const std::uint64_t file = TakeNumber(packed);
    return {index, file, TakeNumber(packed)};
}

// In the order of bytes as in that of numbers.
std::string SortedText(std::uint64_t number) {
    std::string text;
    for (int shift = 56; shift >= 0; shift -= 8) text += static_cast<char>(number >> shift & 0xFF);
    return text;
}

}  // namespace

void RepeatedNumbers::Add(std::string_view number, const Where& where, std::uint64_t which) {
    std::string packed;
    AppendWhere(where, packed);
    AppendNumber(which, packed);
    numbers_.Add(number, packed);
}

void RepeatedNumbers::Collect() {
    std::string last;
    Where first{};
    bool isFirst = true;
    std::string match;
    numbers_.ForEach([&](std::string_view number, std::string_view packed) {
        const Where where = TakeWhere(packed);
        if (isFirst || number != last) {
            isFirst = false;
            last = number;
            first = where;
        } else if (where.index != first.index) {
            match.assign(packed);  // which of its numbers it is
            AppendWhere(first, match);
            matches_.Add(SortedText(where.index), match);
        }
    });
}

void RepeatedNumbers::ForEach(const std::function<void(const Match& match)>& take) {
    Collect();
    matches_.ForEach([&take](std::string_view sorted, std::string_view packed) {
        std::uint64_t index = 0;
        for (const char byte : sorted) index = index << 8 | static_cast<unsigned char>(byte);
        const std::uint64_t which = TakeNumber(packed);
        take({index, which, TakeWhere(packed)});
    });
}

}  // namespace quillory
