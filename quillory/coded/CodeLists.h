#pragma once

#include <quillory/coded/CodeStatus.h>
#include <quillory/coded/Elements.h>

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillory {

enum class CodeState {
    Known,      // in force, as far as the library and the format say
    Newer,      // in force, but not in the library's list, which mostly is older
    Obsolete,   // once valid
    NoAttempt,  // the fill character: no attempt to code
    Unknown,    // never valid
};

// A code with what the library's list and the published format say of it. Texts are UTF-8.
struct CodeMeaning {
    std::string code;  // as in the record
    std::string text;  // empty if unknown
    CodeState state = CodeState::Unknown;
    std::string since;  // as in PublishedCode
    std::string until;
    std::string use;
    bool published = false;  // false for a code that is in use, but not the format's

    friend bool operator==(const CodeMeaning&, const CodeMeaning&) = default;
};

// All codes of all elements, of the library's lists and of the published format.
class CodeLists {
public:
    explicit CodeLists(const CodeStatus& status);

    // The codes of an element, each once: those of the library in the order of its lists, then the
    // others as published; all as published where the library has parts of the list alone. Empty
    // for an element whose values are no codes.
    const std::vector<CodeMeaning>& CodesOf(const Element& element) const;
    // Bytes of one code. An element that is wider holds several.
    int CodeLengthOf(const Element& element) const;
    CodeMeaning Find(const Element& element, std::string_view code) const;
    CodeState StateOf(const Element& element, std::string_view code) const;
    // The codes in a value, without the blanks between them; one for a value that is all blank or
    // all fill characters.
    std::vector<CodeMeaning> CodesIn(const Element& element, std::string_view value) const;
    std::vector<std::string_view> SplitCodes(const Element& element, std::string_view value) const;

    // What was once in positions that are undefined now; empty if nothing.
    const std::string& FormerNameOf(const Element& element) const;

private:
    struct List {
        std::vector<CodeMeaning> codes;
        std::unordered_map<std::string, std::size_t> places;
        int codeLength = 1;
        bool allowsFill = true;
        std::string formerName;

        void Add(const CodeMeaning& meaning);
    };

    static List MakeList(const Element& element, const PublishedElement* published);
    // Those that are not there yet, codes in force with the state given.
    static void AddPublished(const PublishedElement& published, CodeState inForce, List& list);
    const List& ListOf(const Element& element) const;
    // Null for a code that is in no list.
    static const CodeMeaning* FindListed(const List& list, std::string_view code);
    static CodeState StateOfUnlisted(const Element& element, const List& list,
                                     std::string_view code);

    std::map<std::pair<zorby::CFType, int>, List> lists_;
};

// A code of one of the library's own lists.
struct ListedCode {
    std::string code;
    std::string secondCode;  // of the combined form of item, else empty
    std::string text;
};
// In display order; empty if the element has no list.
std::vector<ListedCode> LibraryCodesOf(zorby::CFPart part);

constexpr char kFill = '|';
// Whether a text has nothing but this character, and has it.
bool IsAll(std::string_view text, char c);

}  // namespace quillory
