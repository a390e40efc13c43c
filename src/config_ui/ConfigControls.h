#pragma once

#include <QString>

namespace kestro {

/// What the controls of the sheet show, each under its own name. Radio groups count from 0; a number that no
/// button stands for selects none. A value.
struct ConfigControls {
    bool soundChk = false;
    bool fullScreenChk = false;
    int playModeRadio = 0;     ///< column
    int partialModeRadio = 0;  ///< row: 0 fly, 1 bounce
    float scaleSlider = 1;     ///< size factor
    QString timeIntervalField; ///< seconds, as typed
    int reposRadio = 0;        ///< row: 0 every interval, 1 when the movie ends
    bool randomChk = false;
    bool continueChk = false;
    bool fadeoutChk = false;
    bool backAndForthChk = false;
    int backSaverPopup = 0; ///< item: 0 "Disable"

    bool operator==(const ConfigControls&) const = default;
};

/// Which of the controls can be used; the others always can.
struct ConfigEnabling {
    bool playModeRadio = false;
    bool partialModeRadio = false;
    bool scaleSlider = false;
    bool scaleField = false;
    bool timeIntervalField = false;
    bool reposRadio = false;
    bool fadeoutChk = false;
    bool backAndForthChk = false;
    bool backSaverPopup = false;

    bool operator==(const ConfigEnabling&) const = default;
};

/// A real number as a text field shows it: the shortest decimal text that reads as the same number.
[[nodiscard]] QString fieldText(float value);

} // namespace kestro
