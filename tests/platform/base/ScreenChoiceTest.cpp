#include "platform/base/ScreenChoice.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

using Kind = MonitorChoice::Kind;

} // namespace

TEST(ScreenChoice, monitors_areReadAndWrittenAlike)
{
    const QList<std::pair<QString, MonitorChoice>> table{
        {QStringLiteral("all"), {Kind::All, {}}},
        {QStringLiteral("first"), {Kind::First, {}}},
        {QStringLiteral("HDMI-1"), {Kind::Named, {QStringLiteral("HDMI-1")}}},
        {QStringLiteral("DP-1,My TV"), {Kind::Named, {QStringLiteral("DP-1"), QStringLiteral("My TV")}}},
    };
    for (const auto& [text, choice] : table) {
        const auto read = MonitorChoice::from(text);
        ASSERT_TRUE(read.isOk()) << qPrintable(text);
        EXPECT_EQ(read.value(), choice) << qPrintable(text);
        EXPECT_EQ(choice.text(), text);
    }
}

TEST(ScreenChoice, names_areTakenWithoutSpacesAround_andOnce)
{
    const auto read = MonitorChoice::from(QStringLiteral(" DP-1 , HDMI-1,DP-1"));
    ASSERT_TRUE(read.isOk());
    EXPECT_EQ(read.value().names, (QStringList{QStringLiteral("DP-1"), QStringLiteral("HDMI-1")}));
}

TEST(ScreenChoice, monitors_areRefused_whenANameIsEmptyOrAWordAmongNames)
{
    for (const auto* text : {"", ",", "DP-1,", ",DP-1", "DP-1,,DP-2", "all,DP-1", "DP-1,first"}) {
        const auto read = MonitorChoice::from(QString::fromLatin1(text));
        ASSERT_FALSE(read.isOk()) << text;
        EXPECT_EQ(read.error(),
                  QStringLiteral("\"%1\" is neither all, first nor names with commas between them")
                      .arg(QString::fromLatin1(text)));
    }
}

} // namespace kestro
