#include "platform/movie/MovieFault.h"

#include <gtest/gtest.h>

namespace kestro {

using Kind = MovieFault::Kind;

TEST(MovieFault, plainWords_saySo_withTheDetailInItsPlace)
{
    EXPECT_EQ(plainWords({Kind::NoFile}), QStringLiteral("no such file"));
    EXPECT_EQ(plainWords({Kind::NoDecoder, QStringLiteral("prores")}),
              QStringLiteral("no decoder for prores"));
    EXPECT_EQ(plainWords({Kind::TooLarge, QStringLiteral("9x9")}), QStringLiteral("too large: 9x9"));
    EXPECT_EQ(plainWords({Kind::OutOfMemory}), QStringLiteral("not enough memory"));
    EXPECT_EQ(plainWords({Kind::Other, QStringLiteral("Protocol error")}), QStringLiteral("Protocol error"));
}

} // namespace kestro
