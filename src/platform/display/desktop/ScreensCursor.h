#pragma once

#include "platform/display/desktop/Cursor.h"

namespace kestro {

class Desktop;

/// The pointer over all the surfaces of a desktop. Owned by that desktop. Main thread.
/// Tested by ImageDesktopTest.
class ScreensCursor final : public Cursor {
public:
    explicit ScreensCursor(const Desktop& desktop)
        : m_desktop(desktop)
    {
    }

    /// Tells every surface anew; for screens that came since.
    void refresh() { apply(isHidden()); }

protected:
    void apply(bool hidden) override;

private:
    const Desktop& m_desktop;
};

} // namespace kestro
