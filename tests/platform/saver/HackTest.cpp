#include "platform/saver/Hack.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

TEST(Hack, info_readsBackAsTheSame)
{
    const Hack hack{QStringLiteral("/a/b"), {QStringLiteral("--x"), QStringLiteral("1 2")}, true};
    const auto again = Hack::fromInfo(hack.toInfo());
    ASSERT_TRUE(again.isOk());
    EXPECT_EQ(again.value().program, hack.program);
    EXPECT_EQ(again.value().arguments, hack.arguments);
    EXPECT_TRUE(again.value().drawsOpenGL);
}

TEST(Hack, executable_isFoundBesideOthersAndOnTheSearchPath)
{
    const auto pathOf = [](const char* program) {
        return Hack{QString::fromLatin1(program), {}, false}.executable();
    };
    EXPECT_EQ(pathOf("deco"), QStringLiteral("/usr/libexec/xscreensaver/deco"));
    EXPECT_TRUE(pathOf("sh").endsWith(QStringLiteral("/sh")));
    EXPECT_EQ(pathOf("/usr/bin/env"), QStringLiteral("/usr/bin/env"));
    for (const char* none : {"no-such-program", "/usr/bin", "/etc/passwd", "bin/sh", "../bin/sh"})
        EXPECT_TRUE(pathOf(none).isEmpty()) << none;
}

} // namespace kestro
