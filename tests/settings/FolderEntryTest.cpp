#include "settings/FolderEntry.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

using Order = FolderEntry::Order;

TEST(FolderEntry, entry_saysWhichFolderAndHow)
{
    struct Case {
        const char* url;
        FolderEntry entry;
    };
    for (const Case& c :
         {Case{"folder:///home/ada/Videos", {"/home/ada/Videos"}},
          Case{"folder:///home/ada/Videos/", {"/home/ada/Videos/"}}, Case{"folder://localhost/a", {"/a"}},
          Case{"FOLDER:///a%20b%3F", {"/a b?"}}, Case{"folder:///a?recursive=1", {"/a", true}},
          Case{"folder:///a?recursive=0", {"/a", false}},
          Case{"folder:///a?order=newest", {"/a", false, Order::Newest}},
          Case{"folder:///a?order=shuffled&recursive=1#x", {"/a", true, Order::Shuffled}},
          Case{"folder:///a?order=name", {"/a", false, Order::Name}},
          Case{"folder:///a?order=odd&other=2", {"/a", false, Order::Name}}})
        EXPECT_EQ(folderEntry(QUrl(QString::fromUtf8(c.url))), c.entry) << c.url;
}

TEST(FolderEntry, entry_isNone_whereItNamesNoFolderOfThisMachine)
{
    for (const char* url : {"folder://server/a", "folder:", "folder:a", "folder://", "file:///a", "/a", ""})
        EXPECT_FALSE(folderEntry(QUrl(QString::fromUtf8(url))).has_value()) << url;
    EXPECT_TRUE(isFolderEntry(QUrl(QStringLiteral("folder://server/a"))));
    EXPECT_FALSE(isFolderEntry(QUrl(QStringLiteral("file:///a"))));
}

TEST(FolderEntry, urlOf_isWhatFolderEntryReads)
{
    for (const bool isRecursive : {false, true})
        for (const Order order : {Order::Name, Order::Newest, Order::Shuffled}) {
            const FolderEntry entry{QString::fromUtf8("/home/a%20 b/ü?&#"), isRecursive, order};
            const QUrl stored(urlOf(entry).toString(QUrl::FullyEncoded));
            EXPECT_EQ(folderEntry(stored), entry) << qPrintable(stored.toString());
        }
    EXPECT_EQ(urlOf({QStringLiteral("/a b"), true, Order::Newest}).toString(QUrl::FullyEncoded),
              QStringLiteral("folder:///a%20b?recursive=1&order=newest"));
    EXPECT_EQ(urlOf({QStringLiteral("/a")}).toString(), QStringLiteral("folder:///a"));
}

TEST(FolderEntry, playlistFileOfThisMachine_isAList)
{
    const QUrl url(QStringLiteral("file:///home/a%20b/films.M3U8"));
    EXPECT_TRUE(isListEntry(url));
    const auto entry = folderEntry(url);
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->path, QStringLiteral("/home/a b/films.M3U8"));
    EXPECT_TRUE(entry->isList);
    EXPECT_EQ(urlOf(*entry), url);
}

TEST(FolderEntry, listOnTheWebOrAnotherMachine_isNone)
{
    for (const char* url : {"http://example.com/a.m3u8", "https://example.com/a.xspf", "file://server/a.m3u"})
        EXPECT_FALSE(folderEntry(QUrl(QString::fromUtf8(url))).has_value()) << url;
}

} // namespace kestro
