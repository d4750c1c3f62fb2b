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

enum class CodeState : std::uint8_t {
    Known,      // in force, as far as the library and the format say
    Newer,      // in force, but younger than the library's list
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
    bool published = false;  // false for a code that is in use without being the format's

    friend bool operator==(const CodeMeaning&, const CodeMeaning&) = default;
};

// All codes of all elements, of the library's lists and of the published format.
class CodeLists {
public:
    explicit CodeLists(const CodeStatus& status);

    // The codes of an element, each once. Those of the library come first, in the order of its
    // lists, and the others follow as published; where the library has only parts of the list, all
    // codes come as published. Empty for an element whose values are not codes.
    const std::vector<CodeMeaning>& CodesOf(const Element& element) const;
    // The length of one code in bytes. An element that is wider holds several codes.
    int CodeLengthOf(const Element& element) const;
    CodeMeaning Find(const Element& element, std::string_view code) const;
    CodeState StateOf(const Element& element, std::string_view code) const;
    // The codes in a value, without the blanks between them. A value of blanks alone, or of fill
    // characters alone, counts as one code.
    std::vector<CodeMeaning> CodesIn(const Element& element, std::string_view value) const;
    std::vector<std::string_view> SplitCodes(const Element& element, std::string_view value) const;

    // The name of the element that once stood in positions that are undefined now; empty if there
    // was none.
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
    // Adds the published codes that the list lacks. Codes in force get the state given.
    static void AddPublished(const PublishedElement& published, CodeState inForce, List& list);
    const List& ListOf(const Element& element) const;
    // Null for a code that the list lacks.
    static const CodeMeaning* FindListed(const List& list, std::string_view code);
    static CodeState StateOfUnlisted(const Element& element, const List& list,
                                     std::string_view code);

    std::map<std::pair<zorby::CFType, int>, List> lists_;
};

// A code of one of the library's own lists.
struct ListedCode {
    std::string code;
    std::string secondCode;  // only for the combined form of item
    std::string text;
};
// In display order; empty if the element has no list.
std::vector<ListedCode> LibraryCodesOf(zorby::CFPart part);

constexpr char kFill = '|';
// Whether a text consists of this character alone. False for an empty text.
bool IsAll(std::string_view text, char c);

}  // namespace quillory
