#include "trailers/TextSearch.h"

#include <gtest/gtest.h>
#include <string>

namespace kestro {

TEST(TextSearch, find_findsTheNeedle_atEveryPlaceOfATextOfAnySize)
{
    constexpr TextSearch search("href=\"");
    for (std::size_t size = 6; size < 200; ++size)
        for (std::size_t at = 0; at + 6 <= size; ++at) {
            std::string text(size, 'x');
            text.replace(at, 6, "HrEf=\"");
            EXPECT_EQ(search.find(text), at);
            EXPECT_EQ(search.find(text, at), at);
            EXPECT_EQ(search.find(text, at + 1), TextSearch::npos);
        }
}

TEST(TextSearch, find_findsTheNeedle_whereTwoPiecesMeet)
{
    constexpr TextSearch search("href=\"");
    constexpr std::size_t size = 1600; // three pieces and a part
    for (std::size_t at = 0; at + 6 <= size; ++at) {
        std::string text(size, 'x');
        text.replace(at, 6, "hREF=\"");
        EXPECT_EQ(search.find(text), at);
        EXPECT_EQ(search.find(text, at + 1), TextSearch::npos);
    }
}

TEST(TextSearch, find_ignoresTheCase_ofLettersAlone)
{
    constexpr TextSearch search("a_c(");
    for (const char* text : {"A_C(", "a_c(", "a_C("})
        EXPECT_EQ(search.find(text), 0U) << text;
    // What differs from the needle in the bit that makes letters lower case.
    for (const char* text : {"a\x7f"
                             "c(",
                             "A_C\x08", "\x01_c(", "a?c("})
        EXPECT_EQ(search.find(text), TextSearch::npos) << text;
}

TEST(TextSearch, find_takesNoLookalike_whenOnlyFirstAndLastFit)
{
    constexpr TextSearch search(".json");
    const std::string text = std::string(50, '.') + ".jnon.jsoN" + std::string(50, 'n');
    EXPECT_EQ(search.find(text), 55U);
    EXPECT_EQ(search.find(text, 56), TextSearch::npos);
}

TEST(TextSearch, find_findsNothing_whenTheTextEndsTooSoon)
{
    constexpr TextSearch search(".json");
    const std::string text = "xxxxxxxxxxxxxxxxxxxxxxxxxxxx.json";
    const std::string_view view(text);
    EXPECT_EQ(search.find(view.substr(0, view.size() - 1)), TextSearch::npos);
    EXPECT_EQ(search.find(".jso"), TextSearch::npos);
    EXPECT_EQ(search.find(""), TextSearch::npos);
    EXPECT_EQ(search.find("", 5), TextSearch::npos);
    EXPECT_EQ(search.find(text, 500), TextSearch::npos);
}

} // namespace kestro
