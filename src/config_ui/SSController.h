#pragma once

class QDialog;

namespace kestro {

/// A controller of the sheet that hosts may ask for by name. There is none: every saver view has a sheet of
/// its own, so both operations answer null. Main thread.
class SSController final {
public:
    [[nodiscard]] static SSController* sharedSSController() { return nullptr; }
    [[nodiscard]] QDialog* configWin() const { return nullptr; }
};

} // namespace kestro
