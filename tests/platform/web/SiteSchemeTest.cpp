#include "platform/web/helper/SiteScheme.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

QUrl url(const char* text)
{
    return QUrl(QString::fromLatin1(text));
}

TEST(SiteScheme, toScheme_namesWhatIsOnASite_withoutWhatLetsOthersIn)
{
    EXPECT_EQ(SiteScheme::toScheme(url("http://ada:word@h:8080/a?b#c")), url("kestro-http://h:8080/a?b"));
    EXPECT_EQ(SiteScheme::toScheme(url("https://h/a")), url("kestro-https://h/a"));
    for (const char* other : {"file:///a", "ftp://h/a", "http:///a", ""})
        EXPECT_TRUE(SiteScheme::toScheme(url(other)).isEmpty()) << other;
}

TEST(SiteScheme, fromScheme_leadsBackToTheWebAlone)
{
    EXPECT_EQ(SiteScheme::fromScheme(url("kestro-http://h:8080/a?b")), url("http://h:8080/a?b"));
    for (const char* other :
         {"http://h/a", "kestro-ruffle://player/a", "kestro-file:///a", "kestro-http:///a", ""})
        EXPECT_TRUE(SiteScheme::fromScheme(url(other)).isEmpty()) << other;
}

TEST(SiteScheme, ask_tellsItsOwnAnswerAlone_once)
{
    quint32 asked = 0;
    SiteScheme scheme([&asked](quint32 request, const QUrl&) { asked = request; });
    QByteArrayList told;
    scheme.ask(url("http://h/a"), [&](const SiteScheme::Content& content) { told += content.bytes; });
    scheme.come(asked + 1, {true, "other", {}});
    scheme.come(asked, {true, "own", {}});
    scheme.come(asked, {true, "again", {}});
    EXPECT_EQ(told, QByteArrayList{"own"});
}

} // namespace

} // namespace kestro
