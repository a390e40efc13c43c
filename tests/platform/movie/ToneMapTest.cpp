#include "platform/movie/ToneMap.h"

#include <QColor>

#include <cmath>
#include <gtest/gtest.h>

using namespace kestro;

using Curve = MovieLight::Curve;
using Gamut = MovieLight::Gamut;

/// What the map makes of a pixel of three ten-bit numbers.
static QColor mapped(const MovieLight& light, unsigned red, unsigned green, unsigned blue)
{
    std::uint32_t pixel = red << 20U | green << 10U | blue;
    ToneMap(light).mapTenBits(&pixel, 1);
    return QColor::fromRgb(pixel);
}

static int mappedGrey(const MovieLight& light, unsigned number)
{
    return mapped(light, number, number, number).green();
}

TEST(MovieLight, peakOf_isTheUsualOne_whenNoneIsNamed)
{
    EXPECT_EQ(peakOf(0), MovieLight::usualPeak);
    EXPECT_EQ(peakOf(MovieLight::highestPeak), MovieLight::usualPeak);
    EXPECT_EQ(peakOf(4000), 4000);
}

TEST(ToneMap, leavesDarkLightAsBrightAsItIs)
{
    // 1, 20 and 60 cd/m2 in PQ, on a screen whose white is 203.
    for (const auto& [number, light] : {std::pair(153U, 1.0), std::pair(366U, 20.0), std::pair(468U, 60.0)})
        EXPECT_NEAR(mappedGrey({Curve::Pq, Gamut::Bt2020}, number), 255 * std::pow(light / 203, 1 / 2.2), 2);
}

TEST(ToneMap, makesTheBrightestWhite_andNothingElse)
{
    const MovieLight light{Curve::Pq, Gamut::Bt2020, 1000};
    EXPECT_EQ(mappedGrey(light, 770), 255); // 1,000 cd/m2
    EXPECT_EQ(mappedGrey(light, 1023), 255);
    EXPECT_LT(mappedGrey(light, 700), 255); // 550
    EXPECT_GT(mappedGrey(light, 594), 220); // paper
    EXPECT_LT(mappedGrey({Curve::Pq, Gamut::Bt2020, 4000}, 770), 255);
}

TEST(ToneMap, isBrighterForBrighterLight)
{
    for (const Curve curve : {Curve::Plain, Curve::Pq, Curve::Hlg}) {
        int before = -1;
        for (unsigned number = 0; number < 1024; number += 11) {
            const int grey = mappedGrey({curve, Gamut::Bt2020}, number);
            EXPECT_GE(grey, before) << number;
            before = grey;
        }
        EXPECT_EQ(before, 255);
        EXPECT_EQ(mappedGrey({curve, Gamut::Bt2020}, 0), 0);
    }
}

TEST(ToneMap, givesGreyOfHlgTheContrastOfItsDisplay)
{
    const MovieLight light{Curve::Hlg, Gamut::Bt2020};
    EXPECT_NEAR(mappedGrey(light, 512), 255 * std::pow(50.7 / 203, 1 / 2.2), 2);
    const int paper = mappedGrey(light, 767); // three quarters, 203 cd/m2
    EXPECT_NEAR(paper, mappedGrey({Curve::Pq, Gamut::Bt2020, 1000}, 594), 1);
}

TEST(ToneMap, keepsGrey_whateverTheGamut)
{
    for (const Gamut gamut : {Gamut::Bt2020, Gamut::P3}) {
        const QColor grey = mapped({Curve::Plain, gamut}, 512, 512, 512);
        EXPECT_NEAR(grey.red(), 128, 1);
        EXPECT_NEAR(grey.green(), 128, 1);
        EXPECT_NEAR(grey.blue(), 128, 1);
    }
}

TEST(ToneMap, findsTheScreensColours_inAWiderGamut)
{
    // The screen's red, as numbers of BT.2020 and of P3.
    const auto number = [](double light) { return static_cast<unsigned>(1023 * std::pow(light, 1 / 2.4)); };
    for (const QColor& red :
         {mapped({Curve::Plain, Gamut::Bt2020}, number(0.6274), number(0.0691), number(0.0164)),
          mapped({Curve::Plain, Gamut::P3}, number(0.8225), number(0.0332), number(0.0171))}) {
        EXPECT_NEAR(red.red(), 255, 2);
        EXPECT_LT(red.green(), 16);
        EXPECT_LT(red.blue(), 16);
    }
}

TEST(ToneMap, mixesGreyIntoColours_thatTheScreenLacks)
{
    const QColor green = mapped({Curve::Plain, Gamut::Bt2020}, 0, 1023, 0);
    EXPECT_GT(green.green(), 230);
    EXPECT_GT(green.blue(), 60); // cut off, it would be 0
    EXPECT_EQ(green.red(), 0);
}

TEST(ToneMap, mapsSixteenBitsAsTen)
{
    const ToneMap map({Curve::Pq, Gamut::Bt2020});
    constexpr int count = 150; // more than one block
    std::vector<std::uint32_t> ten;
    std::vector<std::uint16_t> sixteen;
    for (unsigned i = 0; i < count; ++i) {
        ten.push_back(i * 6 << 20U | i * 5 << 10U | i * 4);
        for (const unsigned number : {i * 6, i * 5, i * 4, 0U})
            sixteen.push_back(static_cast<std::uint16_t>(number << 6U));
    }
    std::vector<std::uint32_t> fromSixteen(count);
    map.mapSixteenBits(sixteen.data(), fromSixteen.data(), count);
    map.mapTenBits(ten.data(), count);
    EXPECT_EQ(ten, fromSixteen);
    EXPECT_NE(ten[149], ten[1]);
}
