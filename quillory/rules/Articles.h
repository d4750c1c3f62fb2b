#pragma once

#include <cstddef>
#include <string_view>

namespace quillory {

// The article at the front of a title.
struct Article {
    std::string_view word;          // "The"; empty if there is none
    std::size_t size = 0;           // up to the first sign after it that is no blank
    std::size_t sizeWithSigns = 0;  // the same, and punctuation that follows: "The "
    // The title begins as a name or a phrase in which the word is no article, such as "Los Angeles"
    // or "A to Z"; "La plata perdida" does so too, and has one.
    bool mayBeName = false;
};

// Whether all articles of a language of the MARC Code List are known, in every spelling, and a
// title begins with one of them at most.
bool KnowsArticlesOf(std::string_view language);

// By the definite and indefinite articles of one language. Quotation marks and brackets before the
// article count to its size.
Article ArticleOf(std::string_view title, std::string_view language);

// The same by all languages that are known: that with the longest article.
Article ArticleOfAnyLanguage(std::string_view title);

}  // namespace quillory
