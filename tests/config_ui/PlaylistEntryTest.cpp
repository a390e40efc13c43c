#include "config_ui/PlaylistEntry.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(PlaylistEntry, entryOfFile_isTheEncodedFileURL)
{
    EXPECT_EQ(entryOfFile("/home/me/My Movie #1.mov").text, "file:///home/me/My%20Movie%20%231.mov");
}

TEST(PlaylistEntry, entryOfURL_isTheAbsoluteString)
{
    EXPECT_EQ(entryOfURL(QUrl("auto://LatestTrailers/6/480")).text, "auto://LatestTrailers/6/480");
}

TEST(PlaylistEntry, entryOfText_keepsTheTextAsTyped)
{
    for (const char* text : {"http://Example.COM/%7Ea.MOV", "https://exämple.de/ü.mov", "file:///home/x.mov",
                             "auto://LatestTrailers/6/480", "http://host", "rtsp://host/x"}) {
        const auto entry = entryOfText(QString::fromUtf8(text));
        ASSERT_TRUE(entry) << text;
        EXPECT_EQ(entry->text, QString::fromUtf8(text));
        EXPECT_EQ(entry->url, QUrl(QString::fromUtf8(text)));
    }
}

TEST(PlaylistEntry, entryOfText_leavesWhiteSpaceAroundItOut)
{
    const auto entry = entryOfText(" http://m/a.mov\t\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->text, "http://m/a.mov");
}

TEST(PlaylistEntry, entryOfText_isNone_whereTheTextIsNoAbsoluteURL)
{
    for (const char* text :
         {"", "  ", "xxx", "/home/me/a.mov", "www.example.com/a.mov", "http://a b/",
          "http:", "http://a/b c.mov", "http://a/%zz", "http://host:99999/x", "http:///x.mov", "http://"})
        EXPECT_FALSE(entryOfText(text)) << text;
}

} // namespace kestro
