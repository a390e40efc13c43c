#include "settings/MovieURL.h"

#include "support/URLCase.h"

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

TEST(MovieURL, isValidURL_isFalse_forWebPagesAndPrograms)
{
    for (const char* extension :
         {"htm", "html", "qt", "asp", "jsp", "pl", "woa", "php", "HTML", "Htm", "PHP"}) {
        const std::string url = std::string("http://example.com/a.") + extension;
        EXPECT_FALSE(isValidURL(urlOf(url.c_str()))) << url;
        EXPECT_FALSE(isValidURL(urlOf((url + "?file=a.mov#b.mov").c_str()))) << url;
    }
    EXPECT_FALSE(isValidURL(urlOf("http://example.com/a.html/")));
    EXPECT_FALSE(isValidURL(urlOf("file:///a.mov.php")));
    EXPECT_FALSE(isValidURL(urlOf("http://example.com/a.p%68p")));
}

TEST(MovieURL, isValidURL_isTrue_forAnythingElse)
{
    for (const char* url :
         {"http://example.com/a.mov", "http://example.com/a.swf", "http://example.com", "http://example.com/",
          "http://example.com/php", "http://example.com/.php", "http://example.com/a.",
          "http://example.com/a.html.mov", "http://example.html/a", "http://example.com/a.php/b",
          "http://example.com/a?b.php", "file:///Films/a.mov", "auto://LatestTrailers/6/480",
          "http://example.com/a.xhtml", "http://example.com/a.phpx"})
        EXPECT_TRUE(isValidURL(urlOf(url))) << url;
}

TEST(MovieURL, isAutomaticEntry_isTold_byTheSchemeAlone)
{
    for (const char* url : {"auto://LatestTrailers/6/480", "auto://Anything/3/640", "auto:", "AUTO://x/1/2"})
        EXPECT_TRUE(isAutomaticEntry(urlOf(url))) << url;
    for (const char* url : {"http://LatestTrailers/6/480", "file:///auto", "autos://x/1/2", ""})
        EXPECT_FALSE(isAutomaticEntry(urlOf(url))) << url;
}

TEST(MovieURL, trailerChoice_isTheSame_whetherASlashFollowsOrNot)
{
    for (const char* url : {"auto://LatestTrailers/2/480", "auto://LatestTrailers/2/480/", "auto:///2/480"})
        EXPECT_EQ(trailerChoice(urlOf(url)), (TrailerChoice{2, 480})) << url;
    EXPECT_EQ(trailerChoice(urlOf("auto://LatestTrailers/2/480//")), (TrailerChoice{480, 0}));
}

TEST(MovieURL, trailerChoice_isNothing_withoutAPathOfTwoParts)
{
    for (const char* url : {"auto:", "auto:6/480", "auto:x/6/480", "auto://LatestTrailers", "auto://x/",
                            "auto://x//", "auto://x/480", "auto://x/480/", "http://x/6/480"})
        EXPECT_FALSE(trailerChoice(urlOf(url))) << url;
}

TEST(MovieURL, absoluteString_isFullyEncoded)
{
    for (const URLCase& c :
         std::vector<URLCase>{{"file:///Films/My Film ü.mov", "file:///Films/My%20Film%20%C3%BC.mov"},
                              {"file:///Films/a%20b.mov", "file:///Films/a%20b.mov"},
                              {"http://example.com/a.mov?b=c&d#e", "http://example.com/a.mov?b=c&d#e"},
                              {"http://u:p@example.com:81/a", "http://u:p@example.com:81/a"}})
        EXPECT_EQ(absoluteString(urlOf(c.url)), QString::fromUtf8(c.expected)) << c.url;
}

TEST(MovieURL, absoluteString_keepsTheNameOfAutomaticEntries)
{
    for (const URLCase& c :
         std::vector<URLCase>{{"auto://LatestTrailers/6/480", "auto://LatestTrailers/6/480"},
                              {"auto://latesttrailers/480", "auto://LatestTrailers/480"},
                              {"auto://LatestTrailers", "auto://LatestTrailers"},
                              {"auto://LatestTrailersX/1/2", "auto://latesttrailersx/1/2"},
                              {"http://LatestTrailers/a", "http://latesttrailers/a"}})
        EXPECT_EQ(absoluteString(urlOf(c.url)), QString::fromUtf8(c.expected)) << c.url;
}

} // namespace kestro
