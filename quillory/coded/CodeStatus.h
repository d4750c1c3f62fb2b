#pragma once

#include <quillory/coded/CodePlaces.h>
#include <zorby/elements/CFType.h>

#include <list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

enum class Standing {
    Current,
    Obsolete,
    Local,  // in use, though the format lacks it
};

// A code of the published format. The texts are parts of the source that CodeStatus keeps.
struct PublishedCode {
    std::string_view code;  // as in the record
    Standing standing = Standing::Current;
    std::string_view since;  // year in which it came, where known
    std::string_view until;  // year in which an obsolete code was given up, where known
    std::string_view use;    // the codes to use instead of an obsolete code, divided by blanks
    std::string_view text;   // UTF-8
};

struct PublishedElement {
    std::string_view name;
    int first = 0;
    int last = 0;
    std::vector<PublishedCode> codes;
    CodePlaces places = {};  // of several that are alike, of one in force

    // False if there is one already that is alike, of the same standing.
    bool Add(PublishedCode code);
    // Prefers a code in force to an obsolete one. Null if the format never had the code.
    const PublishedCode* Find(std::string_view code) const;
};

// What the format allows now and what it once allowed. The library's own lists are older and don't
// change. The rows are tab-separated, in the columns
//   field form positions element code status since until use text
// with "#" for a blank in codes; the status is current, obsolete or local. A line that begins with
// "#" is a comment.
class CodeStatus {
public:
    CodeStatus() = default;
    CodeStatus(const CodeStatus&) = delete;
    CodeStatus& operator=(const CodeStatus&) = delete;
    CodeStatus(CodeStatus&&) = default;
    CodeStatus& operator=(CodeStatus&&) = default;
    // Throws FileError, which names the line, for a file that is missing or has a row that does
    // not fit.
    explicit CodeStatus(const std::string& path);

    // Adds the rows of a source, which errors call by `name`. Throws FileError.
    void Add(std::string source, const std::string& name);

    // The published element that begins at this position of the form. Null if there is none.
    const PublishedElement* Find(zorby::CFType form, int first) const;

private:
    void AddRow(std::string_view line);
    std::string_view WithBlanks(std::string_view code);
    PublishedElement& ElementAt(std::string_view field, std::string_view form,
                                std::string_view positions);

    std::list<std::string> sources_;  // and codes with blanks, which sources write in another way
    // Position 0 is the same in all forms of a field, and is kept under CF006Unknown or
    // CF007Unknown.
    std::map<std::pair<zorby::CFType, int>, PublishedElement> elements_;
    // The element of the row that was added last, and the columns that name it.
    PublishedElement* lastElement_ = nullptr;
    std::string_view lastPlace_;
};

}  // namespace quillory
