#include "trailers/CallArguments.h"

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

using Pieces = std::vector<std::string_view>;

namespace {

Pieces callArguments(std::string_view text)
{
    Pieces pieces;
    CallArguments arguments(text);
    while (const auto piece = arguments.next())
        pieces.push_back(*piece);
    EXPECT_FALSE(arguments.next());
    return pieces;
}

} // namespace

TEST(CallArguments, callArguments_splitsAtEachComma_whateverItIsPartOf)
{
    EXPECT_EQ(callArguments("'a', {b:1,c:2}"), (Pieces{"'a'", " {b:1", "c:2}"}));
    EXPECT_EQ(callArguments(""), Pieces{""});
    EXPECT_EQ(callArguments(",x,"), (Pieces{"", "x", ""}));
}

TEST(CallArguments, internalString_isTheQuotedContent_whenThereAreQuotes)
{
    const std::pair<const char*, const char*> rows[] = {
        {"'a b'", "a b"},
        {" '' ", ""},
        {"\"a\"", "a"},
        {"x'a'y'b'", "a"},
        {"\"a'b'c\"", "b"}, // single quotes come first
        {"'a", "a"},        // up to the end without a second one
        {"it's \"so\"", "s \"so\""},
        {"\"a", "a"},
        {" a b ", " a b "}, // none: unchanged
        {"", ""},
    };
    for (const auto& [argument, inner] : rows) {
        EXPECT_EQ(internalString(argument), inner) << argument;
        EXPECT_EQ(internalStringRemoveSpc(argument, false), inner) << argument;
    }
}

TEST(CallArguments, internalStringRemoveSpc_removesSpacesAndHighBytes_onlyWithoutQuotes)
{
    EXPECT_EQ(internalStringRemoveSpc(" 4 8\t0\n\xa0\xff ", true), "48\t0\n");
    EXPECT_EQ(internalStringRemoveSpc("' 480\xa0'", true), " 480\xa0");
    EXPECT_EQ(internalStringRemoveSpc("\" 480\"", true), " 480");
    EXPECT_EQ(internalStringRemoveSpc("' 480", true), " 480");
}

TEST(CallArguments, attrToDict_readsThePairs_withoutBlanks)
{
    const AttributeMap expected = {{"width", "640"}, {"height", "272"}, {"controller", "true"}};
    EXPECT_EQ(attrToDict("{ width: 640,\n height : 272, controller:true, src:'http://H/a.mov' }"), expected);
}

TEST(CallArguments, attrToDict_keepsQuotesAndReturns_asTheyAre)
{
    const AttributeMap expected = {{"'width'", "'480'"}, {"\rheight", "2\r"}, {"width", "1"}};
    EXPECT_EQ(attrToDict("a, {'width': '480',\r\nheight:2\r\n, width\t:1}"), expected);
}

TEST(CallArguments, attrToDict_takesTheLaterValue_whenAKeyComesTwice)
{
    EXPECT_EQ(attrToDict("{a:1,a:2}"), (AttributeMap{{"a", "2"}}));
}

TEST(CallArguments, attrToDict_leavesOut_whatIsNoPair)
{
    EXPECT_EQ(attrToDict("{a,b:1:2,,:,c:}"), (AttributeMap{{"", ""}, {"c", ""}}));
    EXPECT_EQ(attrToDict("{}"), AttributeMap());
}

TEST(CallArguments, attrToDict_readsTheFirstObject_upToTheFirstBrace)
{
    EXPECT_EQ(attrToDict("{a:1,{b:2},c:3}"), (AttributeMap{{"a", "1"}, {"{b", "2"}}));
}

TEST(CallArguments, attrToDict_answersNothing_whenThereIsNoObject)
{
    for (const char* text : {"", "a:1", "{a:1", "a:1}", "}{a:1}"})
        EXPECT_FALSE(attrToDict(text)) << text;
}

TEST(CallArguments, frameSide_isTheTextItself_whenItBeginsWithANumber)
{
    for (const char* text : {"480", "480px", " \t480", "-480", "+1", "00480", "99999999999999999999"})
        EXPECT_EQ(frameSide(text), text);
}

TEST(CallArguments, frameSide_isUnknown_whenTheNumberIsZeroOrNone)
{
    for (const char* text : {"", "0", "000", "-0", "'480'", "px480", "- 1", "+-1", "0.5", "0x10",
                             "\xa0"
                             "1"})
        EXPECT_EQ(frameSide(text), "---") << text;
}

} // namespace kestro
