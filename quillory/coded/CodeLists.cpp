#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Material.h>
#include <zorby/controlfields/MenuData.h>

#include <algorithm>
#include <mutex>
#include <optional>

namespace quillory {
namespace {

using namespace zorby;

ListedCode SplitItem(std::string_view item) {
    ListedCode listed;
    for (std::string_view* line : {&listed.code, &listed.text, &listed.secondCode}) {
        const std::size_t end = std::min(item.find('\n'), item.size());
        *line = item.substr(0, end);
        item.remove_prefix(std::min(end + 1, item.size()));
    }
    return listed;
}

CodeMeaning MeaningOf(const PublishedCode& published) {
    CodeMeaning meaning;
    meaning.code = published.code;
    meaning.text = published.text;
    meaning.state = CodeState::Known;
    meaning.since = published.since;
    meaning.until = published.until;
    meaning.use = published.use;
    meaning.published = published.standing != Standing::Local;
    if (published.standing == Standing::Obsolete) meaning.state = CodeState::Obsolete;
    if (IsAll(published.code, kFill)) meaning.state = CodeState::NoAttempt;
    return meaning;
}

// The text is the library's for a code in force. The library marks obsolete codes in their texts,
// so those keep the published text.
CodeMeaning MeaningOf(const ListedCode& listed, const PublishedElement* published) {
    const PublishedCode* known = published == nullptr ? nullptr : published->Find(listed.code);
    CodeMeaning meaning;
    if (known != nullptr) meaning = MeaningOf(*known);
    meaning.code = listed.Whole();
    if (known == nullptr || known->standing != Standing::Obsolete) {
        meaning.text = listed.text;
        if (meaning.state == CodeState::Unknown) meaning.state = CodeState::Known;
    }
    return meaning;
}

// The first list of an element is the one for any material. An element without it has lists that
// are only parts of the whole. So has 006/00, where each list holds the letters of one form.
bool IsListWhole(const Element& element) {
    if (element.IsUndefined() || (element.first == 0 && IsFormOf006(element.form))) return false;
    return CCFMenuData(element.parts.front()).GetMenuTitle() != nullptr;
}

}  // namespace

bool IsAll(std::string_view text, char c) {
    return !text.empty() && text.find_first_not_of(c) == text.npos;
}

std::vector<ListedCode> LibraryCodesOf(CFPart part) {
    std::vector<ListedCode> codes;
    CCFMenuData menu(part);
    if (menu.GetMenuTitle() == nullptr) return codes;
    for (const char* item = menu.GetTextFirst(); item != nullptr; item = menu.GetTextNext()) {
        codes.push_back(SplitItem(item));
        // Where two entries are joined in one, only the first is an entry.
        if (part != CFPCombinedFormOfItem) codes.back().secondCode = {};
    }
    return codes;
}

class CodeLists::List {
public:
    List(const Element& element, const PublishedElement* published);

    const std::vector<CodeMeaning>& Codes() const { return codes_; }
    int CodeLength() const { return codeLength_; }
    const std::string& FormerName() const { return formerName_; }
    // Null for a code that it lacks.
    const CodeMeaning* Find(std::string_view code) const;
    CodeState StateOfUnlisted(std::string_view code) const;

private:
    void Add(CodeMeaning meaning);
    // Adds the published codes that the list lacks. Codes in force get the state given.
    void AddPublished(const PublishedElement& published, CodeState inForce);
    void AddLibrary(const Element& element, const PublishedElement* published);

    std::vector<CodeMeaning> codes_;
    CodePlaces places_;
    int codeLength_ = 1;
    bool takesFill_ = true;
    std::string formerName_;
};

CodeLists::List::List(const Element& element, const PublishedElement* published) {
    const bool isWhole = IsListWhole(element);
    if (published != nullptr) codes_.reserve(published->codes.size());
    if (published != nullptr && !isWhole) AddPublished(*published, CodeState::Known);
    AddLibrary(element, published);
    if (published != nullptr && isWhole) AddPublished(*published, CodeState::Newer);
    if (element.IsUndefined() && published != nullptr) formerName_ = published->name;
    const bool isAsWide = codes_.empty() || element.form == CF006None;
    codeLength_ = isAsWide ? element.Width() : static_cast<int>(codes_.front().code.size());
    takesFill_ = element.form != CFLdr &&
                 (codes_.empty() ||
                  std::ranges::any_of(codes_, [](const auto& c) { return IsAll(c.code, kFill); }));
}

void CodeLists::List::Add(CodeMeaning meaning) {
    if (places_.Add(codes_, meaning.code).second) codes_.push_back(std::move(meaning));
}

void CodeLists::List::AddPublished(const PublishedElement& published, CodeState inForce) {
    for (const Standing standing : {Standing::Current, Standing::Local, Standing::Obsolete}) {
        for (const PublishedCode& code : published.codes) {
            if (code.standing != standing) continue;
            CodeMeaning meaning = MeaningOf(code);
            // The library leaves the blank out where an element takes several codes.
            const bool isListed = !meaning.published || IsAll(code.code, ' ');
            if (meaning.state == CodeState::Known && !isListed) meaning.state = inForce;
            Add(std::move(meaning));
        }
    }
}

void CodeLists::List::AddLibrary(const Element& element, const PublishedElement* published) {
    for (const CFPart part : element.parts) {
        for (const ListedCode& listed : LibraryCodesOf(part)) Add(MeaningOf(listed, published));
    }
}

const CodeMeaning* CodeLists::List::Find(std::string_view code) const {
    const std::size_t* place = places_.Find(codes_, code);
    return place == nullptr ? nullptr : &codes_[*place];
}

CodeState CodeLists::List::StateOfUnlisted(std::string_view code) const {
    return IsAll(code, kFill) && takesFill_ ? CodeState::NoAttempt : CodeState::Unknown;
}

// The list of an element, and what it is made of.
struct CodeLists::LateList {
    const Element& element;
    const PublishedElement* published;
    std::once_flag isMade;
    std::optional<List> list;
};

CodeLists::CodeLists(CodeStatus status) : status_(std::move(status)) {
    std::vector<CFType> forms = {CFLdr, CF008Standard};
    forms.insert(forms.end(), FormsOf006().begin(), FormsOf006().end());
    forms.insert(forms.end(), FormsOf007().begin(), FormsOf007().end());
    for (const CFType form : forms) {
        for (const Element& element : ElementsOf(form)) {
            Add(element, status_.Find(form, element.first));
        }
    }
    Add(CombinedFormOfItem(), nullptr);
}

CodeLists::CodeLists(CodeLists&&) noexcept = default;

CodeLists& CodeLists::operator=(CodeLists&&) noexcept = default;

CodeLists::~CodeLists() = default;

void CodeLists::Add(const Element& element, const PublishedElement* published) {
    lists_[{element.form, element.first}].reset(new LateList{element, published, {}, {}});
}

const CodeLists::List& CodeLists::ListOf(const Element& element) const {
    LateList& late = *lists_.at({element.form, element.first});
    std::call_once(late.isMade, [&late] { late.list.emplace(late.element, late.published); });
    return *late.list;
}

const std::vector<CodeMeaning>& CodeLists::CodesOf(const Element& element) const {
    return ListOf(element).Codes();
}

int CodeLists::CodeLengthOf(const Element& element) const {
    return ListOf(element).CodeLength();
}

const std::string& CodeLists::FormerNameOf(const Element& element) const {
    return ListOf(element).FormerName();
}

CodeMeaning CodeLists::Find(const Element& element, std::string_view code) const {
    const List& list = ListOf(element);
    if (const CodeMeaning* listed = list.Find(code)) return *listed;
    CodeMeaning meaning;
    meaning.code = code;
    meaning.state = list.StateOfUnlisted(code);
    if (meaning.state == CodeState::NoAttempt) meaning.text = "No attempt to code";
    return meaning;
}

CodeState CodeLists::StateOf(const Element& element, std::string_view code) const {
    const List& list = ListOf(element);
    const CodeMeaning* listed = list.Find(code);
    return listed == nullptr ? list.StateOfUnlisted(code) : listed->state;
}

std::vector<std::string_view> CodeLists::SplitCodes(const Element& element,
                                                    std::string_view value) const {
    const auto length = static_cast<std::size_t>(CodeLengthOf(element));
    if (IsAll(value, ' ') || IsAll(value, kFill)) return {value.substr(0, length)};
    std::vector<std::string_view> codes;
    for (std::size_t i = 0; i < value.size(); i += length) {
        const std::string_view code = value.substr(i, length);
        if (!IsAll(code, ' ')) codes.push_back(code);
    }
    return codes;
}

std::vector<CodeMeaning> CodeLists::CodesIn(const Element& element, std::string_view value) const {
    std::vector<CodeMeaning> codes;
    for (const std::string_view code : SplitCodes(element, value)) {
        codes.push_back(Find(element, code));
    }
    return codes;
}

}  // namespace quillory
