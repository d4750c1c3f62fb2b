#include <quillory/text/Marc8Unicode.h>
#include <quillory/text/QmText.h>
#include <quillory/text/QmUnicode.h>
#include <zorby/charset/Convert.h>
#include <zorby/charset/PlainRun.h>

namespace quillory {

// What QmUnicode does not take goes by way of MARC-8. Printable ASCII is the same in all of them.
std::string QmToUtf8(std::string_view qm) {
    if (zorby::PlainRunLength(qm.data(), qm.data() + qm.size()) == qm.size()) {
        return std::string(qm);
    }
    std::string utf8;
    if (QmUnicode::Of(kNormalFormC).AppendUtf8(qm, utf8)) return utf8;
    utf8.clear();
    std::string marc8(qm);
    zorby::CSZorbyToMARC(marc8);
    Losses losses;
    Marc8Unicode(kNormalFormC).AppendUtf8(marc8, utf8, losses);
    return utf8;
}

std::string QmLinesToUtf8(std::string_view lines) {
    std::string utf8;
    for (;;) {
        const std::size_t end = lines.find('\n');
        utf8 += QmToUtf8(lines.substr(0, end));
        if (end == lines.npos) return utf8;
        utf8 += '\n';
        lines.remove_prefix(end + 1);
    }
}

bool Utf8ToQm(std::string_view utf8, std::string& qm) {
    std::string codes;
    if (!QmUnicode::Of(kNormalFormC).AppendQm(utf8, codes)) return false;
    qm = codes;
    return true;
}

}  // namespace quillory
