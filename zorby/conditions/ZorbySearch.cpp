#include <zorby/conditions/ZorbySearch.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <array>
#include <string_view>
#include <utility>

namespace zorby {
namespace {

constexpr int kNoKey = -1;

struct SearchKeys {
    int tree;
    int user;
    int matchCase;
    int wholeWordsOnly;
    int andOrNot;
    int lookFor1;
    int lookFor2;
    int replaceWith;
};

// By eZORBYSEARCHTYPE.
constexpr std::array<SearchKeys, 3> kSearchKeys{{
    {ZP_AddRecordsCertainTextTree, ZP_AddRecordsCertainTextUser, ZP_AddRecordsCertainTextMatchCase,
     ZP_AddRecordsCertainTextWholeWordsOnly, ZP_AddRecordsCertainTextAndOrNot,
     ZP_AddRecordsCertainTextLookFor1, ZP_AddRecordsCertainTextLookFor2, kNoKey},
    {ZP_RemoveRecordsCertainTextTree, ZP_RemoveRecordsCertainTextUser,
     ZP_RemoveRecordsCertainTextMatchCase, ZP_RemoveRecordsCertainTextWholeWordsOnly,
     ZP_RemoveRecordsCertainTextAndOrNot, ZP_RemoveRecordsCertainTextLookFor1,
     ZP_RemoveRecordsCertainTextLookFor2, kNoKey},
    {ZP_FindAndReplaceTree, ZP_FindAndReplaceUser, ZP_FindAndReplaceMatchCase,
     ZP_FindAndReplaceWholeWordsOnly, kNoKey, ZP_FindAndReplaceLookFor1, kNoKey,
     ZP_FindAndReplaceReplaceWith},
}};

template <class Search, class Transfer>
void ForEachKey(Search& search, const SearchKeys& keys, Transfer transfer) {
    transfer(keys.tree, search.m_strTree);
    transfer(keys.user, search.m_strUser);
    transfer(keys.matchCase, search.m_bMatchCase);
    transfer(keys.wholeWordsOnly, search.m_bWholeWordsOnly);
    transfer(keys.andOrNot, search.m_strAndOrNot);
    transfer(keys.lookFor1, search.m_strLookFor1);
    transfer(keys.lookFor2, search.m_strLookFor2);
    transfer(keys.replaceWith, search.m_strReplaceWith);
}

struct Reading {
    void operator()(int key, std::string& text) const {
        if (key != kNoKey) GetZorbyProfileString(key, text);
    }
    void operator()(int key, int& number) const { number = GetZorbyProfileInt(key); }
};

struct Writing {
    void operator()(int key, const std::string& text) const { WriteZorbyProfileString(key, text); }
    void operator()(int key, int number) const { WriteZorbyProfileInt(key, number); }
};

// The digits of a tag, or -1.
int TagAt(std::string_view text, std::size_t index) {
    int tag = 0;
    for (const char digit : text.substr(index, 3)) {
        if (digit < '0' || digit > '9') return -1;
        tag = 10 * tag + digit - '0';
    }
    return tag;
}

void AppendTags(std::string& text, int first, int last) {
    for (int tag = first; tag <= last; ++tag) {
        char entry[] = "000,";
        CGeneral::UIntToASCII(static_cast<unsigned>(tag), entry, 3);
        text += entry;
    }
}

std::string WithoutRanges(std::string_view text) {
    constexpr std::size_t kRangeLength = 7;  // "100-102"
    std::string expanded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isRange = i + kRangeLength <= text.size() && text[i + 3] == '-' &&
                             TagAt(text, i) >= 0 && TagAt(text, i + 4) >= 0;
        if (!isRange) {
            expanded += text[i];
            continue;
        }
        AppendTags(expanded, TagAt(text, i), TagAt(text, i + 4));
        i += kRangeLength - 1;
    }
    return expanded;
}

void BlankCapitals(std::string& text) {
    constexpr std::string_view kHoldings = "HLD";
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] < 'A' || text[i] > 'Z') continue;
        if (text.compare(i, kHoldings.size(), kHoldings) == 0) {
            i += kHoldings.size() - 1;
        } else {
            text[i] = ' ';
        }
    }
}

}  // namespace

void CZorbySearch::ZorbyProfile(int load, eZORBYSEARCHTYPE type) {
    if (type < eAddRecords || type > eFindAndReplace) return;
    const SearchKeys& keys = kSearchKeys[static_cast<std::size_t>(type)];
    if (load == 0) {
        ForEachKey(*this, keys, Writing());
        return;
    }
    ForEachKey(*this, keys, Reading());
    m_bUsesAndOrNot = type == eFindAndReplace ? 0 : 1;
    if (type == eFindAndReplace) m_strAndOrNot = "or";
}

void CZorbySearch::PrepareForSearch() {
    BlankCapitals(m_strTree);
    std::string expanded = WithoutRanges(m_strUser);
    if (!expanded.empty()) m_strUser = std::move(expanded);
}

}  // namespace zorby
