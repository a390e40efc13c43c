#include "platform/base/URLKind.h"

#include "support/URLCase.h"

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

TEST(URLKind, upperCasePathExtension_isWhatFollowsTheLastPointOfTheName)
{
    for (const URLCase& c : std::vector<URLCase>{{"http://h/a.swf", "SWF"},
                                                 {"http://h/a.tar.Gz", "GZ"},
                                                 {"http://h/a", ""},
                                                 {"http://h/a.", ""},
                                                 {"http://h/.hidden", ""},
                                                 {"http://h/a.b/c", ""},
                                                 {"http://h/a.b/", "B"},
                                                 {"http://h", ""},
                                                 {"http://h/a.swf?b=c.mov", "SWF"},
                                                 {"http://h/a.m%6fv", "MOV"}})
        EXPECT_EQ(upperCasePathExtension(urlOf(c.url)), QString::fromUtf8(c.expected)) << c.url;
}

TEST(URLKind, lastPathComponent_isDecoded)
{
    for (const URLCase& c : std::vector<URLCase>{{"http://h/a/b.mov", "b.mov"},
                                                 {"http://h/a/My%20Film%20%C3%BC.mov", "My Film ü.mov"},
                                                 {"http://h/a/100%25.mov", "100%.mov"},
                                                 {"http://h/a/b/", "b"},
                                                 {"http://h/", ""},
                                                 {"http://h", ""},
                                                 {"", ""},
                                                 {"http://h/a.mov?x=/y#/z", "a.mov"},
                                                 {"file:///Films/a.mov", "a.mov"}})
        EXPECT_EQ(lastPathComponent(urlOf(c.url)), QString::fromUtf8(c.expected)) << c.url;
}

TEST(URLKind, namesWebContent_decidesByThePathAlone)
{
    for (const char* url : {"http://h/x.swf", "http://h/x.SWF", "http://h/x.swf/", "http://h/x.swf/?.mov",
                            "http://h/x.swf#.mov", "http://h/x%2eswf#.mov", "http://h/x.s%77f?a=b.mov",
                            "http://h/x.swf%2F", "file:///x.Swf"})
        EXPECT_TRUE(namesWebContent(urlOf(url))) << url;
    for (const char* url : {"http://h/x.mov?.swf", "http://h/x.mov#x.swf", "http://h/x.swf/a.mov",
                            "http://x.swf/", "http://h/.swf", "http://h/swf", "http://h/x.swf%20", ""})
        EXPECT_FALSE(namesWebContent(urlOf(url))) << url;
}

TEST(URLKind, isWebURL_isTrue_forSitesOnly)
{
    for (const char* url : {"http://h/x.mov", "https://h/x.mov", "HTTP://h", "http://me:pw@h:81/x?y#z"})
        EXPECT_TRUE(isWebURL(urlOf(url))) << url;
    for (const char* url :
         {"", "x.mov", "/Films/x.mov", "//h/x.mov", "http:///x.mov", "http:x.mov", "http://h:99999/x.mov",
          "file:///x.mov", "file://h/x.mov", "edl://x.mov", "smb://h/x.mov", "data:video/mp4,x.mov",
          "ftp://h/x.mov", "auto://LatestTrailers/6/480", "httpx://h/x.mov", "concat:http://h/x.mov"})
        EXPECT_FALSE(isWebURL(urlOf(url))) << url;
}

} // namespace kestro
