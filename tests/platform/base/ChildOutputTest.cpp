#include "platform/base/ChildOutput.h"

#include "platform/base/ChildProcess.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace kestro {

namespace {

ChildOutput saidBy(const QString& line)
{
    ChildOutput output;
    const auto process = ChildProcess::start({.file = QStringLiteral("/bin/sh"),
                                              .arguments = {QStringLiteral("-c"), line},
                                              .descriptors = {{output.number(), STDOUT_FILENO}}});
    EXPECT_TRUE(process && process.value()->waitForEnd().isSuccess());
    return output;
}

} // namespace

TEST(ChildOutput, first_isTheBeginningOfWhatWasSaid)
{
    EXPECT_EQ(saidBy(QStringLiteral("printf abcdef")).first(4), QByteArray("abcd"));
    EXPECT_EQ(saidBy(QStringLiteral("printf abcdef")).first(100), QByteArray("abcdef"));
}

TEST(ChildOutput, last_isTheEndOfWhatWasSaid)
{
    EXPECT_EQ(saidBy(QStringLiteral("printf abcdef")).last(4), QByteArray("cdef"));
    EXPECT_EQ(saidBy(QStringLiteral("printf abcdef")).last(100), QByteArray("abcdef"));
}

TEST(ChildOutput, all_isWhatWasSaid)
{
    EXPECT_EQ(saidBy(QStringLiteral("printf abcdef")).all(), QByteArray("abcdef"));
}

TEST(ChildOutput, isEmpty_whenNothingWasSaid)
{
    EXPECT_EQ(ChildOutput().first(4), QByteArray());
    EXPECT_EQ(ChildOutput().last(4), QByteArray());
    EXPECT_EQ(ChildOutput().all(), QByteArray());
}

} // namespace kestro
