#pragma once

#include <QString>

#include <cassert>
#include <utility>
#include <variant>

namespace kestro {

/// Why something could not be done, in one line for a person.
struct Error {
    QString message;
};

/// A value, or the reason why there is none. For operations whose caller can tell the user why; where absence
/// says it all, std::optional is used instead.
template <typename T>
class [[nodiscard]] Result {
public:
    Result(T value) // NOLINT(google-explicit-constructor): a value is returned as it is
        : m_state(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Error error) // NOLINT(google-explicit-constructor): likewise a reason
        : m_state(std::in_place_index<1>, std::move(error))
    {
    }

    [[nodiscard]] bool isOk() const { return m_state.index() == 0; }
    explicit operator bool() const { return isOk(); }

    /// The value; only where isOk().
    [[nodiscard]] T& value()
    {
        assert(isOk());
        return std::get<0>(m_state);
    }
    [[nodiscard]] const T& value() const
    {
        assert(isOk());
        return std::get<0>(m_state);
    }

    /// The reason; only where not isOk().
    [[nodiscard]] const QString& error() const
    {
        assert(!isOk());
        return std::get<1>(m_state).message;
    }

private:
    std::variant<T, Error> m_state;
};

} // namespace kestro
