#include "host/commands/SettingsReport.h"

#include "platform/base/JsonNumber.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class SettingsReportTest : public testing::Test {
protected:
    QTemporaryDir home;
    SettingsStore store{home.path()};
    Settings settings{store, {}};
};

} // namespace

TEST_F(SettingsReportTest, report_namesEveryAccessor_whenNothingIsSet)
{
    const QStringList names{QStringLiteral("_isBounceMode"), QStringLiteral("_isFlyMode"),
                            QStringLiteral("backAndForth"),  QStringLiteral("backSaver"),
                            QStringLiteral("canContinue"),   QStringLiteral("fadeoutEffect"),
                            QStringLiteral("isBounceMode"),  QStringLiteral("isContinue"),
                            QStringLiteral("isDynamicMode"), QStringLiteral("isFlyMode"),
                            QStringLiteral("isFullScreen"),  QStringLiteral("isRandomMode"),
                            QStringLiteral("isSoundOn"),     QStringLiteral("partialMode"),
                            QStringLiteral("playMode"),      QStringLiteral("plistVersion"),
                            QStringLiteral("reposition"),    QStringLiteral("repostionWhenMovieEnds"),
                            QStringLiteral("scaleFactor"),   QStringLiteral("timeInterval")};
    EXPECT_EQ(settingsReport(settings).keys(), names);
}

TEST_F(SettingsReportTest, report_keepsEachKind_whenSet)
{
    store.setPlist({{QStringLiteral("Ver"), QStringLiteral("5")},
                    {QStringLiteral("SoundOn"), QStringLiteral("1")},
                    {QStringLiteral("Scale"), QStringLiteral("0.1")},
                    {QStringLiteral("BackSaver"), QStringLiteral("/a b.saver")}});
    const QJsonObject report = settingsReport(settings);
    EXPECT_EQ(report.value(QStringLiteral("plistVersion")), QJsonValue(5));
    EXPECT_EQ(report.value(QStringLiteral("isSoundOn")), QJsonValue(true));
    EXPECT_EQ(report.value(QStringLiteral("scaleFactor")), QJsonValue(0.1));
    EXPECT_EQ(report.value(QStringLiteral("backSaver")), QJsonValue(QStringLiteral("/a b.saver")));
}

TEST_F(SettingsReportTest, backSaver_isNull_whenThereIsNone)
{
    EXPECT_TRUE(settingsReport(settings).value(QStringLiteral("backSaver")).isNull());
}

TEST(JsonNumber, shortestReal_isWhatAPersonWouldWrite_whenTheFloatIsNotExact)
{
    EXPECT_EQ(shortestReal(0.1F), 0.1);
    EXPECT_EQ(shortestReal(16777216.0F), 16777216.0);
    EXPECT_EQ(shortestReal(-3.3F), -3.3);
    EXPECT_EQ(shortestReal(1e-20F), 1e-20);
    EXPECT_EQ(shortestReal(0.0F), 0.0);
}

} // namespace kestro
