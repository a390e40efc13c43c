#include "settings/EntryMark.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

static const EntryMark starredByNight{true, {.kind = PlayTime::Kind::Night}};

TEST(EntryMark, words_sayStarAndTime_inAnyOrder)
{
    EXPECT_EQ(entryMarkFrom(QStringLiteral("star night")), starredByNight);
    EXPECT_EQ(entryMarkFrom(QStringLiteral("  night   star ")), starredByNight);
    EXPECT_EQ(entryMarkFrom(QStringLiteral("star")), (EntryMark{true, {}}));
    EXPECT_EQ(entryMarkFrom(QString()), EntryMark());
}

TEST(EntryMark, words_areNone_whereOneIsUnknown_orSaidTwice)
{
    for (const char* words : {"star moon", "star star", "day night", "Star", "8-9 9-10"})
        EXPECT_FALSE(entryMarkFrom(QString::fromUtf8(words))) << words;
}

TEST(EntryMark, text_isReadBack)
{
    for (const char* words : {"", "star", "night", "star 08:00-17:00"})
        EXPECT_EQ(textOf(entryMarkFrom(QString::fromUtf8(words)).value_or(starredByNight)),
                  QString::fromUtf8(words));
}

TEST(EntryMark, folder_saysItInItsQuery)
{
    EXPECT_EQ(markOfFolder(QUrl(QStringLiteral("folder:///f?recursive=1&star=1&when=night"))),
              starredByNight);
    EXPECT_EQ(markOfFolder(QUrl(QStringLiteral("folder:///f?when=20:30-06:00"))).time,
              (PlayTime{PlayTime::Kind::Hours, 1230, 360}));
    EXPECT_EQ(markOfFolder(QUrl(QStringLiteral("folder:///f?star=yes&when=soon"))), EntryMark());
    EXPECT_EQ(markOfFolder(QUrl(QStringLiteral("folder:///f"))), EntryMark());
}

TEST(EntryMark, folder_keepsTheRestOfItsQuery)
{
    const QUrl plain(QStringLiteral("folder:///f%20g?recursive=1&order=newest"));
    const QUrl marked = folderWithMark(plain, starredByNight);
    EXPECT_EQ(marked.toString(QUrl::FullyEncoded),
              QStringLiteral("folder:///f%20g?recursive=1&order=newest&star=1&when=night"));
    EXPECT_EQ(folderWithMark(marked, EntryMark()), plain);
    const QUrl bare(QStringLiteral("folder:///f"));
    EXPECT_EQ(folderWithMark(folderWithMark(bare, starredByNight), EntryMark()), bare);
}

} // namespace kestro
