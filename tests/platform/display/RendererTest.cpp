#include "platform/display/Renderer.h"

#include "platform/base/Log.h"
#include "platform/base/ScopedEnvironment.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QStringList linesFor(const char* wish)
{
    const ScopedEnvironment environment("KESTRO_RENDERER", wish);
    QStringList lines;
    const LogCapture capture([&lines](const QString& line) { lines += line; });
    heedRendererWish();
    return lines;
}

} // namespace

TEST(Renderer, heedRendererWish_saysNothing_whenSoftwareIsWantedOrNothing)
{
    EXPECT_TRUE(linesFor("software").isEmpty());
    EXPECT_TRUE(linesFor("").isEmpty());
}

TEST(Renderer, heedRendererWish_saysThatItDrawsInSoftware_whenOpenglIsWanted)
{
    const QStringList lines = linesFor("opengl");
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.front().contains(QStringLiteral("this build draws in software")));
}

TEST(Renderer, heedRendererWish_namesTheTwoValues_whenTheWishIsNeither)
{
    const QStringList lines = linesFor("vulkan");
    ASSERT_EQ(lines.size(), 1);
    for (const char* part : {"software", "opengl", "vulkan"})
        EXPECT_TRUE(lines.front().contains(QLatin1String(part))) << part;
}

} // namespace kestro
