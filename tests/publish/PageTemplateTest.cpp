#include "publish/PageTemplate.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {
namespace {

TEST(PageTemplate, escapesText_andNotHtml)
{
    const PageTemplate page(QStringLiteral("<b title=\"{{name}}\">{{name}}</b>{{&part}}"));
    EXPECT_EQ(page.filled({{QStringLiteral("name"), QStringLiteral("a<b\"")},
                           {QStringLiteral("part"), QStringLiteral("<i>")}}),
              QStringLiteral("<b title=\"a&#60;b&#34;\">a&#60;b&#34;</b><i>"));
}

TEST(PageTemplate, leavesAGapEmpty_whenItHasNoValue)
{
    EXPECT_EQ(PageTemplate(QStringLiteral("a{{nothing}}b")).filled({}), QStringLiteral("ab"));
}

TEST(PageTemplate, doesNotFillWhatWasFilledIn)
{
    const PageTemplate page(QStringLiteral("{{&a}}{{b}}"));
    EXPECT_EQ(page.filled({{QStringLiteral("a"), QStringLiteral("{{b}}")},
                           {QStringLiteral("b"), QStringLiteral("x")}}),
              QStringLiteral("{{b}}x"));
}

TEST(EscapedHtml, isAscii_whateverTheText)
{
    const QString text = QString::fromUtf8("Grüße aus 東京 \U0001F3AC\tneu");
    const QString escaped = escapedHtml(text);
    EXPECT_TRUE(
        std::ranges::all_of(escaped, [](QChar letter) { return letter >= u' ' && letter < QChar(0x7f); }));
    EXPECT_TRUE(escaped.contains(QStringLiteral("&#127916;"))) << escaped.toStdString();
}

TEST(EscapedHtml, holdsNothingThatIsSearchedFor_whateverTheText)
{
    const QString escaped = escapedHtml(
        QStringLiteral("href=\"x\" 'a.json' QT_WriteOBJECT_XHTML(1) AC.Quicktime.packageMovie('m')"));
    for (const char* word : {"href=\"", ".json", "XHTML(", "packageMovie(", "'", "AC.Quick"})
        EXPECT_FALSE(escaped.contains(QLatin1String(word))) << word;
}

class CarriedPage : public testing::TestWithParam<const char*> {};

TEST_P(CarriedPage, isAscii)
{
    const QByteArray text = carriedFile(QString::fromLatin1(GetParam()));
    ASSERT_GT(text.size(), 100);
    EXPECT_TRUE(std::ranges::all_of(text, [](char letter) { return letter >= '\n' && letter < 0x7f; }));
}

INSTANTIATE_TEST_SUITE_P(Names, CarriedPage,
                         testing::Values("index.html", "title.html", "card.html", "row.html", "site.css",
                                         "player.js", "gallery.js", "icon.svg", "poster.svg"));

} // namespace
} // namespace kestro
