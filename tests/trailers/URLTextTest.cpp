#include "trailers/URLText.h"

#include "platform/base/FileName.h"

#include <gtest/gtest.h>
#include <string>

namespace kestro {

namespace {

std::string pathOf(std::string_view text)
{
    const auto url = URLText::parse(text);
    return url ? std::string(url->path()) : "no URL";
}

} // namespace

TEST(URLText, parse_findsEveryPart_whenAllAreThere)
{
    const auto url = URLText::parse("http://ada:x@nas.example:8080/trailers/a.html;p?x=1?/y#top/");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->scheme, "http");
    EXPECT_EQ(url->authority, "ada:x@nas.example:8080");
    EXPECT_EQ(url->hostAndPort(), "nas.example:8080");
    EXPECT_EQ(url->host(), "nas.example");
    EXPECT_EQ(url->port("http"), "8080");
    EXPECT_EQ(url->path(), "/trailers/a.html;p");
    EXPECT_EQ(url->query, "?x=1?/y");
    EXPECT_EQ(url->fragment, "#top/");
}

TEST(URLText, parse_answersNothing_whenACharacterIsIllegal)
{
    for (const std::string bad : {" ", "\t", "\n", "\x01", "\x7f", "\x80", "\xe9", "\"",  "<",   ">", "\\",
                                  "^", "`",  "{",  "|",    "}",    "%",    "%1",   "%g1", "%1g", "##"})
        EXPECT_FALSE(URLText::parse("/a" + bad)) << bad;
    EXPECT_FALSE(URLText::parse(std::string_view("/a\0b", 4)));
}

TEST(URLText, parse_takesTheText_whenEveryCharacterIsLegal)
{
    EXPECT_EQ(pathOf("/azAZ09-_.!~*'();:@&=+$,[]%aF"), "/azAZ09-_.!~*'();:@&=+$,[]%aF");
}

TEST(URLText, parse_findsNoPath_whenASchemeHasNoSlashAfterIt)
{
    for (const char* text :
         {"mailto:ada@example.org", "javascript:void(0)", "http:page.html", "http:?x", "data:,#x"})
        EXPECT_EQ(pathOf(text), "") << text;
}

TEST(URLText, parse_findsNoScheme_whenTheWordIsNone)
{
    for (const char* text : {"1http://x", ":x", "a_b:c", "./http://x", "?a:b"}) {
        const auto url = URLText::parse(text);
        ASSERT_TRUE(url) << text;
        EXPECT_EQ(url->scheme, "") << text;
    }
}

TEST(URLText, path_hasNoSlashAtItsEnd_whenItIsNotTheRoot)
{
    EXPECT_EQ(pathOf("http://h/trailers/"), "/trailers");
    EXPECT_EQ(pathOf("http://h/trailers//"), "/trailers");
    EXPECT_EQ(pathOf("title/"), "title");
    EXPECT_EQ(pathOf("http://h/"), "/");
    EXPECT_EQ(pathOf("http://h"), "");
    EXPECT_EQ(pathOf("http://h?x=/"), "");
    EXPECT_EQ(pathOf("#/"), "");
}

TEST(URLText, hostAndPort_keepsTheBrackets_whenTheHostIsAnAddress)
{
    const auto url = URLText::parse("http://[::1]:8080/x");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->hostAndPort(), "[::1]:8080");
    EXPECT_EQ(url->host(), "[::1]");
    EXPECT_EQ(url->port("http"), "8080");
    EXPECT_EQ(URLText::parse("http://[::1]/x")->host(), "[::1]");
}

TEST(URLText, port_isTheSchemesOwn_whenNoneIsWritten)
{
    const auto url = URLText::parse("http://nas:/x");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->hostAndPort(), "nas");
    EXPECT_EQ(url->port("http"), "80");
    EXPECT_EQ(url->port("https"), "443");
    EXPECT_EQ(url->port("ftp"), "");
}

TEST(URLText, extensionIn_isWhatStandsAfterTheLastDot_ofTheLastComponent)
{
    const std::pair<const char*, const char*> rows[] = {
        {"a.mov", "mov"},
        {"/x/a.b.MOV", "MOV"},
        {"/x.y/a", ""},
        {"a", ""},
        {"a.", ""},
        {".mov", ""},
        {"/x/.mov", ""},
        {"..", ""},
        {"/x.y/", "y"},
        {"", ""},
        {"a.html?x=1", "html?x=1"},
        {"/", ""},
    };
    for (const auto& [path, extension] : rows)
        EXPECT_EQ(extensionIn(std::string_view(path)), extension) << path;
}

TEST(URLText, hasExtension_ignoresCase_always)
{
    EXPECT_TRUE(hasExtension("a.MoV", "mov"));
    EXPECT_FALSE(hasExtension("a.move", "mov"));
    EXPECT_FALSE(hasExtension("a.mo", "mov"));
    EXPECT_FALSE(hasExtension("mov", "mov"));
}

} // namespace kestro
