#pragma once

#include "Canvas.h"

#include <vector>

namespace kestro::intro {

/// Ribbons of northern light: each is a sheet of many fine threads that waves and folds, brightest where
/// threads crowd at a fold, with rays rising from it. Adds light to the rows above the shoreline. Holds the
/// scratch picture of its thread.
class Ribbons final {
public:
    Ribbons();
    /// `phase` runs from 0 to tau over the loop.
    void draw(Canvas& canvas, float phase);

private:
    struct Ribbon {
        float middle;  // y of the sheet's middle
        float sway;    // how far it waves, pixels
        float breadth; // of the sheet, pixels
        float fold;    // how deep its folds are, in breadths
        float folds;   // how many
        float start;   // its own place in every wave
        float turn;    // 1 or -1: the way its waves run
        float bright;
        Light upper, lower;
        std::vector<Light> threads;
    };

    void spin(Ribbon& ribbon);
    void drawColumn(const Ribbon& ribbon, int x, float phase);
    void raiseRays();
    void addTo(Canvas& canvas) const;
    [[nodiscard]] Light* column(int x) { return m_columns.data() + static_cast<std::ptrdiff_t>(x) * rows; }
    [[nodiscard]] const Light* column(int x) const
    {
        return m_columns.data() + static_cast<std::ptrdiff_t>(x) * rows;
    }

    static constexpr int rows = 720;
    std::vector<Ribbon> m_ribbons;
    std::vector<Light> m_columns; // column after column: threads and rays run along them
};

} // namespace kestro::intro
