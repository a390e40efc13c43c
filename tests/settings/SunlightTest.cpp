#include "settings/Sunlight.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr Place london{51.5074, -0.1278};
constexpr Place newYork{40.7128, -74.0060};
constexpr Place berlin{52.52, 13.405};
constexpr Place sydney{-33.8688, 151.2093};
constexpr Place tokyo{35.6762, 139.6503};
constexpr Place singapore{1.3521, 103.8198};
constexpr Place reykjavik{64.1466, -21.9426};
constexpr Place tromso{69.6492, 18.9553};

QDateTime inUTC(const char* text)
{
    return QDateTime::fromString(QString::fromUtf8(text) + u'Z', Qt::ISODate);
}

std::optional<Place> placeOf(const char* lines)
{
    return placeFrom(ConfigurationFile(QByteArray("[place]\n") + lines, QStringLiteral("conf")));
}

} // namespace

// As almanacs publish them, in universal time.
TEST(Sunlight, sun_risesAndSets_whenAlmanacsSay)
{
    struct Case {
        const char* city;
        Place place;
        const char* rise;
        const char* set;
    };
    for (const Case& c : {Case{"London", london, "2024-06-21T03:43", "2024-06-21T20:21"},
                          Case{"London", london, "2024-12-21T08:04", "2024-12-21T15:54"},
                          Case{"New York", newYork, "2024-06-20T09:25", "2024-06-21T00:30"},
                          Case{"New York", newYork, "2024-12-21T12:17", "2024-12-21T21:32"},
                          Case{"Berlin", berlin, "2024-06-21T02:43", "2024-06-21T19:33"},
                          Case{"Berlin", berlin, "2026-03-20T05:09", "2026-03-20T17:19"},
                          Case{"Sydney", sydney, "2024-06-20T21:00", "2024-06-21T06:54"},
                          Case{"Sydney", sydney, "2024-12-21T18:41", "2024-12-22T09:06"},
                          Case{"Tokyo", tokyo, "2024-06-20T19:26", "2024-06-21T10:00"},
                          Case{"Tokyo", tokyo, "2024-12-20T21:47", "2024-12-21T07:31"},
                          Case{"Singapore", singapore, "2024-03-19T23:09", "2024-03-20T11:15"},
                          Case{"Reykjavik", reykjavik, "2024-06-21T02:55", "2024-06-22T00:03"},
                          Case{"Reykjavik", reykjavik, "2024-12-21T11:22", "2024-12-21T15:30"}}) {
        constexpr qint64 twoMinutes = 120;
        const QDateTime rise = inUTC(c.rise);
        const QDateTime set = inUTC(c.set);
        EXPECT_FALSE(isSunUp(c.place, rise.addSecs(-twoMinutes))) << c.city << ' ' << c.rise;
        EXPECT_TRUE(isSunUp(c.place, rise.addSecs(twoMinutes))) << c.city << ' ' << c.rise;
        EXPECT_TRUE(isSunUp(c.place, set.addSecs(-twoMinutes))) << c.city << ' ' << c.set;
        EXPECT_FALSE(isSunUp(c.place, set.addSecs(twoMinutes))) << c.city << ' ' << c.set;
    }
}

TEST(Sunlight, sun_staysUp_inAMidnightSun_andDown_inAPolarNight)
{
    for (int hour = 0; hour < 24; ++hour) {
        const qint64 later = hour * 3600LL;
        EXPECT_TRUE(isSunUp(tromso, inUTC("2024-06-21T00:00").addSecs(later))) << hour;
        EXPECT_FALSE(isSunUp(tromso, inUTC("2024-12-21T00:00").addSecs(later))) << hour;
    }
}

TEST(Sunlight, moment_isTheSame_inWhateverZoneItIsTold)
{
    const QDateTime noon = QDateTime::fromString(QStringLiteral("2024-06-21T12:00+10:00"), Qt::ISODate);
    EXPECT_TRUE(isSunUp(sydney, noon));
    EXPECT_FALSE(isSunUp(newYork, noon));
}

TEST(Sunlight, place_isWhatTheFileSays)
{
    EXPECT_EQ(placeOf("latitude=52.52\nlongitude=13.405\n"), (Place{52.52, 13.405}));
    EXPECT_EQ(placeOf("latitude=-90\nlongitude=-180\n"), (Place{-90, -180}));
}

TEST(Sunlight, place_isNone_whereHalfOfItIsMissing)
{
    EXPECT_FALSE(placeOf(""));
    EXPECT_FALSE(placeOf("latitude=52.52\n"));
    EXPECT_FALSE(placeOf("latitude=\nlongitude=13\n"));
}

TEST(Sunlight, place_isNone_withALine_whereItIsNotUnderstood)
{
    for (const char* text : {"north", "90.5", "nan", "inf", "52,5"}) {
        QStringList said;
        const LogCapture capture([&](const QString& line) { said.append(line); });
        EXPECT_FALSE(placeOf((QByteArray("latitude=") + text + "\nlongitude=13\n").constData())) << text;
        EXPECT_EQ(said, QStringList(QStringLiteral("conf, line 2: \"%1\" is no number of degrees up to 90.")
                                        .arg(QLatin1String(text))));
    }
}

} // namespace kestro
