#include "platform/web/helper/SwfKind.h"

#include <gtest/gtest.h>

namespace kestro {

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

} // namespace kestro
