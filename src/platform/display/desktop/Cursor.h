#pragma once

namespace kestro {

/// The mouse pointer. Hiding counts: it shows again when each hide was undone. Main thread.
/// Tested by MySaverLifeTest.
class Cursor {
public:
    virtual ~Cursor() = default;

    void hide();
    /// Undoes one hide; nothing when the pointer is not hidden.
    void unhide();
    [[nodiscard]] bool isHidden() const { return m_hides > 0; }

protected:
    /// The pointer is to appear or vanish over our surfaces.
    virtual void apply(bool hidden) = 0;

private:
    int m_hides = 0;
};

} // namespace kestro
