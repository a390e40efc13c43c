#include "platform/movie/ToneMap.h"

#include "platform/base/Widest.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <tuple>

namespace kestro {

namespace {

using Curve = MovieLight::Curve;
using Gamut = MovieLight::Gamut;

// What screens make of numbers: plain movies are made for the first (ITU-R BT.1886), desktops for the second.
constexpr double plainGamma = 2.4;
constexpr double screenGamma = 2.2;

/// SMPTE ST 2084: cd/m2 of a number from 0 to 1.
double lightOfPq(double number)
{
    const double power = std::pow(number, 32 / 2523.0);
    const double above = std::max(power - 3424 / 4096.0, 0.0);
    return 10000 * std::pow(above / (2413 / 128.0 - 2392 / 128.0 * power), 16384 / 2610.0);
}

double pqOfLight(double light)
{
    const double power = std::pow(light / 10000, 2610 / 16384.0);
    return std::pow((3424 / 4096.0 + 2413 / 128.0 * power) / (1 + 2392 / 128.0 * power), 2523 / 32.0);
}

/// ARIB STD-B67: light before the camera, 1 the most there is.
double lightOfHlg(double number)
{
    constexpr double a = 0.17883277;
    constexpr double b = 1 - 4 * a;
    const double c = 0.5 - a * std::log(4 * a);
    return number <= 0.5 ? number * number / 3 : (std::exp((number - c) / a) + b) / 12;
}

/// ITU-R BT.2390: light up to `peak` bent into that of white paper, from its knee on; all in cd/m2.
double bent(double light, double peak)
{
    const double brightest = pqOfLight(peak);
    const double most = pqOfLight(MovieLight::paperWhite) / brightest;
    const double knee = 1.5 * most - 0.5;
    const double number = std::min(pqOfLight(light) / brightest, 1.0);
    if (number <= knee || most >= 1) return std::min(light, MovieLight::paperWhite);
    const double t = (number - knee) / (1 - knee);
    const double t2 = t * t;
    const double t3 = t2 * t;
    return lightOfPq(brightest * ((2 * t3 - 3 * t2 + 1) * knee + (t3 - 2 * t2 + t) * (1 - knee) +
                                  (3 * t2 - 2 * t3) * most));
}

/// From the movie's red, green and blue light to the screen's.
std::array<float, 9> matrixOf(Gamut gamut)
{
    switch (gamut) {
    case Gamut::Bt2020:
        return {1.660491F,  -0.587641F, -0.072850F, -0.124550F, 1.132900F,
                -0.008349F, -0.018151F, -0.100579F, 1.118730F};
    case Gamut::P3:
        return {1.224940F, -0.224940F, 0.0F, -0.042057F, 1.042057F, 0.0F, -0.019638F, -0.078636F, 1.098274F};
    default:
        return {1, 0, 0, 0, 1, 0, 0, 0, 1};
    }
}

// Tables reach from 1/2^20 to 2^4 times white.
constexpr int lowestExponent = -20;
constexpr int mantissaBits = 23;
constexpr int droppedBits = 14;
constexpr int exponentBias = 127;
constexpr std::int32_t firstEntry = (exponentBias + lowestExponent) << (mantissaBits - droppedBits);

/// The light in the middle of those that an entry stands for.
float lightOf(int entry)
{
    return std::bit_cast<float>(((entry + firstEntry) << droppedBits) + (1 << (droppedBits - 1)));
}

/// What is darker than all entries has the first, what is brighter the last.
template <std::size_t Count>
KESTRO_WIDEST void findEntries(const std::array<float, Count>& light, std::array<std::int32_t, Count>& found,
                               int last)
{
    for (std::size_t i = 0; i < Count; ++i)
        found[i] = std::clamp((std::bit_cast<std::int32_t>(light[i]) >> droppedBits) - firstEntry, 0, last);
}

/// Numbers that the processor works on at once, in twos or fours where it cannot do all.
using Some [[gnu::vector_size(32)]] = float;
constexpr std::size_t atOnce = sizeof(Some) / sizeof(float);

/// Into the screen's gamut: what it lacks is mixed with as much grey as it takes, what it cannot make as
/// bright is made darker.
template <typename Channel>
KESTRO_WIDEST void fitGamut(Channel& reds, Channel& greens, Channel& blues,
                            const std::array<float, 9>& matrix)
{
    static_assert(std::tuple_size_v<Channel> % atOnce == 0);
    const Some none = {};
    const Some full = none + 1;
    for (std::size_t i = 0; i < reds.size(); i += atOnce) {
        Some light[3];
        std::memcpy(&light[0], &reds[i], sizeof(Some));
        std::memcpy(&light[1], &greens[i], sizeof(Some));
        std::memcpy(&light[2], &blues[i], sizeof(Some));
        const Some red = matrix[0] * light[0] + matrix[1] * light[1] + matrix[2] * light[2];
        const Some green = matrix[3] * light[0] + matrix[4] * light[1] + matrix[5] * light[2];
        const Some blue = matrix[6] * light[0] + matrix[7] * light[1] + matrix[8] * light[2];
        const Some grey = 0.2126F * red + 0.7152F * green + 0.0722F * blue;
        Some least = red < green ? red : green;
        least = least < blue ? least : blue;
        least = least < none ? least : none;
        Some most = red > green ? red : green;
        most = most > blue ? most : blue;
        const Some share = least / (least - grey - 1e-9F);
        most += (grey - most) * share;
        const Some scale = 1 / (most > full ? most : full);
        light[0] = (red + (grey - red) * share) * scale;
        light[1] = (green + (grey - green) * share) * scale;
        light[2] = (blue + (grey - blue) * share) * scale;
        std::memcpy(&reds[i], &light[0], sizeof(Some));
        std::memcpy(&greens[i], &light[1], sizeof(Some));
        std::memcpy(&blues[i], &light[2], sizeof(Some));
    }
}

} // namespace

ToneMap::ToneMap(const MovieLight& light)
    : m_isScene(light.curve == Curve::Hlg)
    , m_gamut(matrixOf(light.gamut))
    , m_encoded(entries)
{
    static_assert(entriesPerDoubling == 1 << (mantissaBits - droppedBits));
    fillTables(light);
}

void ToneMap::fillTables(const MovieLight& light)
{
    constexpr double white = MovieLight::paperWhite;
    for (int i = 0; i < levels; ++i) {
        const double number = static_cast<double>(i) / (levels - 1);
        const double shown = light.curve == Curve::Pq ? bent(lightOfPq(number), light.peak) / white
                                                      : std::pow(number, plainGamma);
        m_light[static_cast<std::size_t>(i)] = static_cast<float>(m_isScene ? lightOfHlg(number) : shown);
    }
    const double gamma = light.isHdr() ? screenGamma : plainGamma;
    for (int i = 0; i < entries; ++i) {
        const double shown = std::min(static_cast<double>(lightOf(i)), 1.0);
        m_encoded[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(std::lround(255 * std::pow(shown, 1 / gamma)));
    }
    m_encoded[0] = 0;
    if (!m_isScene) return;
    for (int i = 0; i < entries; ++i) {
        m_boost.push_back(static_cast<float>(std::pow(lightOf(i), 0.2) * MovieLight::usualPeak / white));
        m_bent.push_back(static_cast<float>(bent(lightOf(i) * white, MovieLight::usualPeak) / white));
    }
}

/// What a display of that brightness shows, which is more contrast than the camera saw, bent for the screen.
void ToneMap::showOnDisplay(Block& scene) const
{
    Channel light;
    Entries found;
    for (std::size_t i = 0; i < light.size(); ++i)
        light[i] = 0.2627F * scene.red[i] + 0.6780F * scene.green[i] + 0.0593F * scene.blue[i];
    findEntries(light, found, entries - 1);
    Channel boost;
    for (std::size_t i = 0; i < boost.size(); ++i)
        boost[i] = m_boost[static_cast<std::size_t>(found[i])];
    for (Channel* const channel : {&scene.red, &scene.green, &scene.blue}) {
        for (std::size_t i = 0; i < boost.size(); ++i)
            light[i] = (*channel)[i] * boost[i];
        findEntries(light, found, entries - 1);
        for (std::size_t i = 0; i < boost.size(); ++i)
            (*channel)[i] = m_bent[static_cast<std::size_t>(found[i])];
    }
}

void ToneMap::encode(const Block& block, std::uint32_t* pixels, int count) const
{
    Entries red;
    Entries green;
    Entries blue;
    findEntries(block.red, red, entries - 1);
    findEntries(block.green, green, entries - 1);
    findEntries(block.blue, blue, entries - 1);
    const auto number = [this](std::int32_t entry) {
        return std::uint32_t{m_encoded[static_cast<std::size_t>(entry)]};
    };
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        pixels[i] = 0xFF000000U | number(red[i]) << 16U | number(green[i]) << 8U | number(blue[i]);
}

void ToneMap::mapBlock(Block& block, std::uint32_t* pixels, int count) const
{
    if (m_isScene) showOnDisplay(block);
    fitGamut(block.red, block.green, block.blue, m_gamut);
    encode(block, pixels, count);
}

void ToneMap::mapTenBits(std::uint32_t* pixels, int count) const
{
    Block block;
    for (; count > 0; count -= blockSize, pixels += blockSize) {
        const int some = std::min(count, blockSize);
        for (std::size_t i = 0; i < static_cast<std::size_t>(some); ++i) {
            block.red[i] = m_light[pixels[i] >> 20U & 1023U];
            block.green[i] = m_light[pixels[i] >> 10U & 1023U];
            block.blue[i] = m_light[pixels[i] & 1023U];
        }
        mapBlock(block, pixels, some);
    }
}

void ToneMap::mapSixteenBits(const std::uint16_t* colours, std::uint32_t* pixels, int count) const
{
    Block block;
    for (; count > 0; count -= blockSize, pixels += blockSize) {
        const int some = std::min(count, blockSize);
        for (std::size_t i = 0; i < static_cast<std::size_t>(some); ++i, colours += 4) {
            block.red[i] = m_light[colours[0] >> 6U];
            block.green[i] = m_light[colours[1] >> 6U];
            block.blue[i] = m_light[colours[2] >> 6U];
        }
        mapBlock(block, pixels, some);
    }
}

} // namespace kestro
