#include "publish/Slug.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace kestro {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

TEST(Slug, slugOf_keepsOnlyLettersDigitsAndSingleDashes)
{
    EXPECT_EQ(slugOf(text("Big Film")), text("big-film"));
    EXPECT_EQ(slugOf(text("  A, B (part 2)!  ")), text("a-b-part-2"));
    EXPECT_EQ(slugOf(text("Don't \"quote\" me")), text("dont-quote-me"));
    EXPECT_EQ(slugOf(text("Über den Flüssen: Straße")), text("uber-den-flussen-strasse"));
    EXPECT_EQ(slugOf(text("Ærø")), text("aero"));
    EXPECT_EQ(slugOf(text("../../etc/passwd")), text("etc-passwd"));
    EXPECT_EQ(slugOf(text("海の映画")), QString());
}

TEST(Slug, slugOf_isCut_whenTheNameIsLong)
{
    EXPECT_EQ(slugOf(QString(500, u'x')).size(), 60);
    EXPECT_EQ(slugOf(QString(59, u'x') + text(" yz")), QString(59, u'x'));
}

TEST(SlugMaker, slugFor_isThePlainSlug_whenItIsFree)
{
    SlugMaker slugs;
    EXPECT_EQ(slugs.slugFor(text("Waves"), text("a")), text("waves"));
}

TEST(SlugMaker, slugFor_isUnique_whenNamesAreAlike)
{
    SlugMaker slugs;
    QSet<QString> all;
    for (const char* key : {"a", "b", "c"})
        all.insert(slugs.slugFor(text("Waves"), text(key)));
    EXPECT_EQ(all.size(), 3);
}

TEST(SlugMaker, slugFor_staysTheSame_whenOtherTitlesAppear_andLettersAreLost)
{
    SlugMaker alone;
    SlugMaker crowded;
    (void)crowded.slugFor(text("山"), text("another"));
    const QString slug = alone.slugFor(text("海"), text("sea"));
    EXPECT_EQ(crowded.slugFor(text("海"), text("sea")), slug);
    EXPECT_TRUE(QRegularExpression(text("^title-[0-9a-f]{8}$")).match(slug).hasMatch()) << slug.toStdString();
}

TEST(SlugMaker, slugFor_keepsWhatCanBeKept_whenLettersAreLost)
{
    SlugMaker slugs;
    EXPECT_TRUE(slugs.slugFor(text("Sea 海"), text("sea")).startsWith(text("sea-")));
    EXPECT_NE(slugs.slugFor(text("Sea 山"), text("mountain")), text("sea"));
}

} // namespace
} // namespace kestro
