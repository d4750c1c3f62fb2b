#pragma once

#include <quillory/coded/CodeStatus.h>
#include <quillory/coded/Elements.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
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

// All codes of all elements, of the library's lists and of the published format. The list of an
// element is made when it is asked for, by whatever thread.
class CodeLists {
public:
    explicit CodeLists(CodeStatus status);
    CodeLists(CodeLists&&) noexcept;
    CodeLists& operator=(CodeLists&&) noexcept;
    ~CodeLists();

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
    class List;
    struct LateList;

    void Add(const Element& element, const PublishedElement* published);
    const List& ListOf(const Element& element) const;

    CodeStatus status_;
    std::map<std::pair<zorby::CFType, int>, std::unique_ptr<LateList>> lists_;
};

// A code of one of the library's own lists, which are there as long as the program runs.
struct ListedCode {
    std::string_view code;
    std::string_view secondCode;  // only for the combined form of item
    std::string_view text;

    std::string Whole() const { return std::string(code).append(secondCode); }
};
// In display order; empty if the element has no list.
std::vector<ListedCode> LibraryCodesOf(zorby::CFPart part);

constexpr char kFill = '|';
// Whether a text consists of this character alone. False for an empty text.
bool IsAll(std::string_view text, char c);

}  // namespace quillory
