#pragma once

#include <atomic>
#include <cstdint>

namespace kestro {

/// Whether what runs is to be given up. Owned by a fetch; any thread.
class Cancellation final {
public:
    /// What one fetch looks at: true once it is to end, also when fetches have been allowed again since.
    class Watch final {
    public:
        explicit Watch(const Cancellation& cancellation)
            : m_cancellation(cancellation)
            , m_count(cancellation.m_count)
        {
        }
        [[nodiscard]] bool isCancelled() const
        {
            return m_cancellation.m_isSet || m_cancellation.m_count != m_count;
        }

    private:
        const Cancellation& m_cancellation;
        std::uint64_t m_count;
    };

    void cancel()
    {
        m_isSet = true;
        ++m_count;
    }
    void allow() { m_isSet = false; }

private:
    std::atomic<bool> m_isSet = false;
    std::atomic<std::uint64_t> m_count = 0;
};

} // namespace kestro
