#include "trailers/LinkResolver.h"

#include "trailers/PageBase.h"

#include <gtest/gtest.h>
#include <set>

namespace kestro {

namespace {

struct Row {
    const char* link;
    std::optional<std::string> url;
};

void expectLinks(const char* base, std::initializer_list<Row> rows)
{
    const auto page = PageBase::from(base);
    ASSERT_TRUE(page) << base;
    for (const Row& row : rows) {
        EXPECT_EQ(mergedStringFromToURL(row.link, *page), row.url) << row.link;
        EXPECT_EQ(mergeURLStringToURL(row.link, *page), row.url) << row.link;
    }
}

bool isValid(const char* url, const char* host)
{
    return CrawledSite{host}.isValidURL(url, [](std::string_view) { return false; });
}

} // namespace

TEST(LinkResolver, mergedString_resolvesTheLink_whenItStaysOnTheSite)
{
    expectLinks("http://H/trailers/studio/", {
                                                 {"title/", "http://H/trailers/studio/title/"},
                                                 {"title", "http://H/trailers/studio/title/"},
                                                 {"../index.html", "http://H/trailers/index.html"},
                                                 {"./clip.mov", "http://H/trailers/studio/clip.mov"},
                                                 {"/trailers/new?x=1", "http://H/trailers/new/"},
                                                 {"page.html?x=1", "http://H/trailers/studio/page.html?x=1"},
                                                 {"http://H/trailers/a.html?x#y", "http://H/trailers/a.html"},
                                                 {"//H/trailers/a", "http://H/trailers/a/"},
                                                 {"http:///trailers/a", "http://H/trailers/a/"},
                                                 {"/", "http://H/"},
                                                 {"http://H/", "http://H/"},
                                                 {".", "http://H/trailers/studio/"},
                                                 {"..", "http://H/trailers/"},
                                                 {"../..", "http://H/"},
                                                 {"a%20b.html", "http://H/trailers/studio/a%20b.html"},
                                                 {"/a%20b.html", "http://H/a%20b.html"},
                                             });
}

TEST(LinkResolver, mergedString_answersNothing_whenTheLinkLeavesTheSite)
{
    expectLinks("http://H/trailers/studio/", {
                                                 {"ftp://H/trailers/", {}},
                                                 {"https://H/trailers/", {}},
                                                 {"HTTP://H/trailers/", {}},
                                                 {"http://h/trailers/", {}},
                                                 {"http://other/trailers/", {}},
                                                 {"//other/trailers/", {}},
                                                 {"http://H:8080/trailers/", {}},
                                                 {"javascript:void(0)", {}},
                                                 {"mailto:ada@H", {}},
                                             });
}

TEST(LinkResolver, mergedString_answersNothing_whenThereIsNoPath)
{
    expectLinks("http://H/trailers/", {{"#top", {}},
                                       {"?page=2", {}},
                                       {"", {}},
                                       {"http://H", {}},
                                       {"http://H?x=/y", {}},
                                       {"http://H#/y", {}},
                                       {"http:a.html", {}}});
}

TEST(LinkResolver, mergedString_answersNothing_whenTheTextIsNoURL)
{
    expectLinks("http://H/trailers/", {{"a b", {}},
                                       {"a\n", {}},
                                       {"caf\xe9", {}},
                                       {"50%", {}},
                                       {"{x}", {}},
                                       {"a\\b", {}},
                                       {"<%= url %>", {}},
                                       {"a#b#c", {}}});
}

TEST(LinkResolver, mergedString_walksTheWholeText_whenTheLinkIsRelative)
{
    expectLinks("http://H/trailers/studio/",
                {
                    {"title?x=1", "http://H/trailers/studio/title?x=1/"},
                    {"title#top", "http://H/trailers/studio/title#top/"},
                    {"a.html?next=../b.html", "http://H/trailers/studio/a.html?next=../b.html"},
                    {"a.html?next=/../b.html", "http://H/trailers/studio/b.html"},
                    {"a.html?next=b/c", "http://H/trailers/studio/a.html?next=b/c/"},
                    {"a//b///c.html", "http://H/trailers/studio/a/b/c.html"},
                    {"a/./../b.html", "http://H/trailers/studio/b.html"},
                    {"v1.0/", "http://H/trailers/studio/v1.0"},
                });
}

TEST(LinkResolver, mergedString_keepsThePathAsItIs_whenItIsAbsolute)
{
    expectLinks("http://H/trailers/studio/", {{"/a//b/../c.html", "http://H/a//b/../c.html"},
                                              {"/v1.0/", "http://H/v1.0"},
                                              {"/a/..", "http://H/a/../"},
                                              {"/a;p=1", "http://H/a;p=1/"}});
}

TEST(LinkResolver, mergedString_removesTheRootLast_whenThereAreMoreStepsUp)
{
    expectLinks("http://H/trailers/studio/", {{"../../a", "http://H/a/"},
                                              {"../../../a", "http://Ha/"},
                                              {"../../../../..", "http://H/"},
                                              {"../../../../a/b.html", "http://Ha/b.html"}});
}

TEST(LinkResolver, mergedString_keepsThePort_whenTheBaseHasOne)
{
    expectLinks("http://nas:8080/trailers/",
                {
                    {"a.html", "http://nas:8080/trailers/a.html"},
                    {"/b", "http://nas:8080/b/"},
                    {"http://nas:8080/trailers/c", "http://nas:8080/trailers/c/"},
                    {"http://nas/trailers/c", {}},
                    {"http://nas:80/trailers/c", {}},
                });
}

TEST(LinkResolver, mergedString_takesTheUsualPortForNone_whenOneSideHasIt)
{
    expectLinks("http://nas/trailers/", {{"http://nas:80/trailers/c", "http://nas/trailers/c/"}});
    expectLinks("https://nas:443/trailers/", {{"https://nas/trailers/c", "https://nas:443/trailers/c/"}});
}

TEST(LinkResolver, mergedString_dropsTheUser_whenTheBaseHasOne)
{
    expectLinks("http://ada:x@H/trailers/",
                {{"a", "http://H/trailers/a/"}, {"http://eve@H/b", "http://H/b/"}});
}

TEST(LinkResolver, isValidURL_isTrue_whenThePageLiesBelowTheSitesTrailers)
{
    for (const char* url :
         {"http://H/trailers", "http://H/trailers/", "http://H/trailers2/x", "http://H/trailers.html",
          "https://H/trailers/a.jpg", "http://H/trailers/a.mov?x=1", "http://H/trailers/css",
          "http://H/trailers/a?x.css"})
        EXPECT_TRUE(isValid(url, "H")) << url;
}

TEST(LinkResolver, isValidURL_isFalse_whenHostPathOrKindIsAnother)
{
    for (const char* url :
         {"http://h/trailers/", "http://H.org/trailers/", "http://xH/trailers/", "http://H/Trailers/",
          "http://H/x/trailers/", "http://H/", "http://H", "http://H/trailers/a.css",
          "http://H/trailers/a.CSS/", "http://H/trailers/a b", "", "/trailers/"})
        EXPECT_FALSE(isValid(url, "H")) << url;
}

TEST(LinkResolver, isValidURL_isFalse_whenThereIsNoSite)
{
    EXPECT_FALSE(isValid("http:///trailers/", ""));
    EXPECT_FALSE(isValid("http://H/trailers/", ""));
}

TEST(LinkResolver, isValidURL_comparesThePort_onlyWhenTheSiteNamesOne)
{
    EXPECT_TRUE(isValid("http://nas:8080/trailers/", "nas"));
    EXPECT_TRUE(isValid("http://nas:8080/trailers/", "nas:8080"));
    EXPECT_TRUE(isValid("http://nas/trailers/", "nas:80"));
    EXPECT_FALSE(isValid("http://nas:8081/trailers/", "nas:8080"));
    EXPECT_FALSE(isValid("http://nas/trailers/", "nas:8080"));
    EXPECT_TRUE(isValid("http://[::1]:8080/trailers/", "[::1]"));
}

TEST(LinkResolver, isValidURL_isFalse_whenTheURLWasPassed)
{
    const std::set<std::string, std::less<>> passed = {"http://H/trailers/a/"};
    const auto isPassed = [&](std::string_view url) { return passed.contains(url); };
    EXPECT_FALSE(CrawledSite{"H"}.isValidURL("http://H/trailers/a/", isPassed));
    EXPECT_TRUE(CrawledSite{"H"}.isValidURL("http://H/trailers/a", isPassed));
}

} // namespace kestro
