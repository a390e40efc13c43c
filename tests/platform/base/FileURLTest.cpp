#include "platform/base/FileURL.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

namespace {

std::optional<QString> pathOf(const char* url)
{
    return localPath(QUrl(QString::fromLatin1(url)));
}

} // namespace

TEST(FileURL, path_isTheFilesOfThisMachine)
{
    EXPECT_EQ(pathOf("file:///films/a%20b.mov"), QStringLiteral("/films/a b.mov"));
    EXPECT_EQ(pathOf("file:/films/a.mov"), QStringLiteral("/films/a.mov"));
    EXPECT_EQ(pathOf("file://localhost/films/a%23b.mov"), QStringLiteral("/films/a#b.mov"));
    EXPECT_EQ(pathOf("FILE://LOCALHOST/films/a.mov"), QStringLiteral("/films/a.mov"));
}

TEST(FileURL, path_isNone_ofAnotherMachineAndOfAnotherScheme)
{
    for (const char* url :
         {"file://server/films/a.mov", "file://localhost.example/a.mov", "http://localhost/a.mov",
          "https://server/a.mov", "auto://LatestTrailers/1/480", "/films/a.mov", ""})
        EXPECT_FALSE(pathOf(url)) << url;
}

} // namespace kestro
