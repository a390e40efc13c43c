#pragma once

namespace kestro {

/// What light the numbers of a movie's frames stand for. A value; any thread. Tested by ToneMapTest.
struct MovieLight {
    enum class Curve {
        Plain, ///< as screens take them: white is as bright as the screen makes it
        Pq,    ///< absolute, up to 10,000 cd/m2 (SMPTE ST 2084)
        Hlg,   ///< relative to a display of 1,000 cd/m2 (ARIB STD-B67)
    };
    enum class Gamut {
        Screen, ///< the colours of HD and of all screens; those of SD are taken for them
        P3,     ///< of cinemas and telephones
        Bt2020, ///< of UHD
    };

    /// The brightest of a movie that does not say it, in cd/m2: most are made on displays of that.
    static constexpr double usualPeak = 1000;
    /// What PQ may hold; a movie that names no other peak has not said any.
    static constexpr double highestPeak = 10000;
    /// White paper, in cd/m2 (ITU-R BT.2408): what white is on a screen that is no brighter.
    static constexpr double paperWhite = 203;

    Curve curve = Curve::Plain;
    Gamut gamut = Gamut::Screen;
    double peak = usualPeak; ///< the brightest there is, in cd/m2; means nothing where the curve is plain

    /// Whether a screen can be given the numbers as they are.
    [[nodiscard]] bool isPlain() const { return curve == Curve::Plain && gamut == Gamut::Screen; }
    /// Whether there is more light than a screen has.
    [[nodiscard]] bool isHdr() const { return curve != Curve::Plain; }
    [[nodiscard]] bool operator==(const MovieLight&) const = default;
};

/// The peak of a movie that says `named` of it, in cd/m2: what it cannot mean, nothing or all that can be
/// written, stands for the usual one.
[[nodiscard]] constexpr double peakOf(double named)
{
    const bool isMeant = named > 1 && named < MovieLight::highestPeak - 1;
    return isMeant ? named : MovieLight::usualPeak;
}

} // namespace kestro
