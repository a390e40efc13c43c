#include "platform/base/Result.h"

#include <gtest/gtest.h>
#include <memory>

namespace kestro {

namespace {

enum class Fault { Empty, TooLarge };

Result<int> numberFrom(const QString& text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber) return Error{QStringLiteral("no number: %1").arg(text)};
    return number;
}

Result<void> check(const QString& text)
{
    const auto number = numberFrom(text);
    if (!number) return number.failure();
    return {};
}

Result<std::unique_ptr<int>> kept(const QString& text)
{
    if (const auto checked = check(text); !checked) return checked.failure();
    return std::make_unique<int>(numberFrom(text).value());
}

Result<void, Fault> checkLength(const QString& text)
{
    if (text.isEmpty()) return Fault::Empty;
    if (text.size() > 3) return Fault::TooLarge;
    return {};
}

Result<QString, Fault> shortText(const QString& text)
{
    if (const auto checked = checkLength(text); !checked) return checked.failure();
    return text;
}

} // namespace

TEST(Result, value_isKept)
{
    const auto number = numberFrom(QStringLiteral("42"));
    ASSERT_TRUE(number.isOk());
    EXPECT_EQ(number.value(), 42);
}

TEST(Result, error_saysWhyThereIsNoValue)
{
    const auto number = numberFrom(QStringLiteral("x"));
    ASSERT_FALSE(number);
    EXPECT_EQ(number.error(), QStringLiteral("no number: x"));
}

TEST(Result, ofNothing_isOk_withoutAReason)
{
    EXPECT_TRUE(check(QStringLiteral("7")).isOk());
}

TEST(Result, failure_passesUpUnchanged_betweenKindsOfValue)
{
    const auto result = kept(QStringLiteral("x"));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), QStringLiteral("no number: x"));
}

TEST(Result, value_canBeMovedOut_whenItCannotBeCopied)
{
    auto result = kept(QStringLiteral("5"));
    ASSERT_TRUE(result);
    const std::unique_ptr<int> number = std::move(result.value());
    EXPECT_EQ(*number, 5);
}

TEST(Result, failure_isAKindOfFault_whereCallersTellThemApart)
{
    EXPECT_EQ(shortText(QString()).failure(), Fault::Empty);
    EXPECT_EQ(shortText(QStringLiteral("long")).failure(), Fault::TooLarge);
    EXPECT_EQ(shortText(QStringLiteral("abc")).value(), QStringLiteral("abc"));
}

} // namespace kestro
