#pragma once

struct wl_display;

/// Has the tests' compositor tell its clients of the power of its outputs, which are on at first. Outputs
/// have their number for data. A client that would switch one is written down: "switches OUTPUT".
void offerPower(wl_display* display);

/// Tells whether an output is on from now on.
void tellPower(int output, bool isOn);
