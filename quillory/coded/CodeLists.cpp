#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Material.h>
#include <zorby/controlfields/MenuData.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

ListedCode SplitItem(std::string_view item) {
    ListedCode listed;
    for (std::string* line : {&listed.code, &listed.text, &listed.secondCode}) {
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
    meaning.code = listed.code + listed.secondCode;
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
        if (part != CFPCombinedFormOfItem) codes.back().secondCode.clear();
    }
    return codes;
}

void CodeLists::List::Add(const CodeMeaning& meaning) {
    if (places.try_emplace(meaning.code, codes.size()).second) codes.push_back(meaning);
}

void CodeLists::AddPublished(const PublishedElement& published, CodeState inForce, List& list) {
    for (const Standing standing : {Standing::Current, Standing::Local, Standing::Obsolete}) {
        for (const PublishedCode& code : published.codes) {
            if (code.standing != standing) continue;
            CodeMeaning meaning = MeaningOf(code);
            // The library leaves the blank out where an element takes several codes.
            const bool isListed = !meaning.published || IsAll(code.code, ' ');
            if (meaning.state == CodeState::Known && !isListed) meaning.state = inForce;
            list.Add(meaning);
        }
    }
}

CodeLists::List CodeLists::MakeList(const Element& element, const PublishedElement* published) {
    List list;
    const bool isWhole = IsListWhole(element);
    if (published != nullptr && !isWhole) AddPublished(*published, CodeState::Known, list);
    for (const CFPart part : element.parts) {
        for (const ListedCode& listed : LibraryCodesOf(part)) {
            list.Add(MeaningOf(listed, published));
        }
    }
    if (published != nullptr && isWhole) AddPublished(*published, CodeState::Newer, list);
    if (element.IsUndefined() && published != nullptr) list.formerName = published->name;
    if (list.codes.empty()) {
        list.codeLength = element.Width();
    } else {
        list.codeLength = element.form == CF006None
                              ? element.Width()
                              : static_cast<int>(list.codes.front().code.size());
        list.allowsFill = std::any_of(list.codes.begin(), list.codes.end(),
                                      [](const auto& c) { return IsAll(c.code, kFill); });
    }
    return list;
}

CodeLists::CodeLists(const CodeStatus& status) {
    std::vector<CFType> forms = {CFLdr, CF008Standard};
    forms.insert(forms.end(), FormsOf006().begin(), FormsOf006().end());
    forms.insert(forms.end(), FormsOf007().begin(), FormsOf007().end());
    for (const CFType form : forms) {
        for (const Element& element : ElementsOf(form)) {
            lists_[{form, element.first}] = MakeList(element, status.Find(form, element.first));
        }
    }
    const Element& combined = CombinedFormOfItem();
    lists_[{combined.form, combined.first}] = MakeList(combined, nullptr);
}

const CodeLists::List& CodeLists::ListOf(const Element& element) const {
    return lists_.at({element.form, element.first});
}

const std::vector<CodeMeaning>& CodeLists::CodesOf(const Element& element) const {
    return ListOf(element).codes;
}

int CodeLists::CodeLengthOf(const Element& element) const {
    return ListOf(element).codeLength;
}

const std::string& CodeLists::FormerNameOf(const Element& element) const {
    return ListOf(element).formerName;
}

const CodeMeaning* CodeLists::FindListed(const List& list, std::string_view code) {
    const auto place = list.places.find(std::string(code));
    return place == list.places.end() ? nullptr : &list.codes[place->second];
}

CodeState CodeLists::StateOfUnlisted(const Element& element, const List& list,
                                     std::string_view code) {
    const bool isFill = IsAll(code, kFill) && list.allowsFill && element.form != CFLdr;
    return isFill ? CodeState::NoAttempt : CodeState::Unknown;
}

CodeMeaning CodeLists::Find(const Element& element, std::string_view code) const {
    const List& list = ListOf(element);
    if (const CodeMeaning* listed = FindListed(list, code)) return *listed;
    CodeMeaning meaning;
    meaning.code = code;
    meaning.state = StateOfUnlisted(element, list, code);
    if (meaning.state == CodeState::NoAttempt) meaning.text = "No attempt to code";
    return meaning;
}

CodeState CodeLists::StateOf(const Element& element, std::string_view code) const {
    const List& list = ListOf(element);
    const CodeMeaning* listed = FindListed(list, code);
    return listed == nullptr ? StateOfUnlisted(element, list, code) : listed->state;
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
