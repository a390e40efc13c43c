#pragma once

#include <QRect>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace kestro {

/// The windows on the root of an X11 display as they lay at one moment, seen from our own windows among them.
/// It tells a screen locker's window, which may lie above ours, from all others: it covers a whole window of
/// ours, and no window manager looks after it. Another saver's does so too. A plain value; pixels.
/// Tested by test_session.
class RootStack final {
public:
    /// Two round trips to the X server, more where something may be a locker's. Empty where it does not
    /// answer.
    [[nodiscard]] static RootStack read(xcb_connection_t* connection);

    /// The highest of the other programs' windows that are shown above ours, 0 where there is none.
    [[nodiscard]] std::uint32_t highestAbove(std::uint32_t ours) const;
    /// The lowest locker's window above any of our pictures, 0 where there is none.
    [[nodiscard]] std::uint32_t locker() const;
    /// Whether the window, or the one on the root that it is a part of, is one that a locker may have.
    [[nodiscard]] bool isOfLocker(std::uint32_t window) const;

private:
    struct Entry {
        std::uint32_t window = 0;
        QRect place;
        bool isShown = false;
        bool isUnmanaged = false;
        bool hasPicture = false;
        bool isOurs = false;
        bool isServers = false; ///< that of the compositing manager, which is always the highest
    };

    explicit RootStack(xcb_connection_t* connection)
        : m_connection(connection)
    {
    }

    void readEntries();
    [[nodiscard]] std::vector<QRect> pictures() const;
    [[nodiscard]] bool mayLock(const Entry& entry, const std::vector<QRect>& pictures) const;

    xcb_connection_t* m_connection;
    std::vector<Entry> m_entries; ///< lowest first
};

/// Whether a window was made through that connection.
[[nodiscard]] bool isOwnWindow(xcb_connection_t* connection, std::uint32_t window);

} // namespace kestro
