#include "platform/web/helper/SwfKind.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

TEST(SwfKind, hasSwfExtension_looksAtThePathAlone_inAnyCase)
{
    const struct {
        const char* url;
        bool isSwf;
    } cases[] = {{"http://h/a.swf", true},    {"http://h/a.SWF?x=1#y", true},
                 {"file:///m/a%2ESwf", true}, {"http://h/a.html?b.swf", false},
                 {"http://h/swf", false},     {"http://h.swf", false}};
    for (const auto& each : cases)
        EXPECT_EQ(hasSwfExtension(QUrl(QString::fromLatin1(each.url))), each.isSwf) << each.url;
}

TEST(SwfKind, hasSwfSignature_wantsALetterForThePackingAndAVersion)
{
    const struct {
        QByteArray start;
        bool isSwf;
    } cases[] = {{"FWS\x06", true}, {"CWS\x0a", true}, {"ZWS\x0d", true}, {"XWS\x06", false},
                 {"FWS", false},    {"", false},       {"FWSx", false},   {QByteArray("FWS\0", 4), false},
                 {"<html>", false}};
    for (const auto& each : cases)
        EXPECT_EQ(hasSwfSignature(each.start), each.isSwf) << each.start.toHex().toStdString();
}

TEST(SwfKind, isSwfType_knowsBothNames)
{
    EXPECT_TRUE(isSwfType(QStringLiteral("application/x-shockwave-flash")));
    EXPECT_TRUE(isSwfType(QStringLiteral("application/vnd.adobe.flash.movie")));
    EXPECT_FALSE(isSwfType(QStringLiteral("text/html")));
}

} // namespace kestro
