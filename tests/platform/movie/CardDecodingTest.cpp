#include "platform/movie/CardDecoding.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(CardDecoding, codecsOfWay_areThoseThatItsDriverCanBeAskedFor)
{
    EXPECT_EQ(codecsOfWay(QStringLiteral("vaapi")),
              QStringList({QStringLiteral("h264"), QStringLiteral("hevc"), QStringLiteral("vp9"),
                           QStringLiteral("av1"), QStringLiteral("mpeg2video")}));
    EXPECT_TRUE(codecsOfWay(QStringLiteral("cuda")).contains(QStringLiteral("h264")));
    EXPECT_TRUE(codecsOfWay(QStringLiteral("no such way")).isEmpty());
}

TEST(CardDecoding, movieLibraryVersions_namesBothLibraries)
{
    const QStringList versions = movieLibraryVersions();
    ASSERT_EQ(versions.size(), 2);
    EXPECT_TRUE(versions[0].startsWith(u"FFmpeg ") && versions[0].size() > 7) << qPrintable(versions[0]);
    EXPECT_TRUE(versions[1].startsWith(u"libmpv's interface ")) << qPrintable(versions[1]);
}

} // namespace kestro
