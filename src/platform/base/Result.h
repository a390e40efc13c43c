#pragma once

#include <QString>

#include <cassert>
#include <concepts>
#include <optional>
#include <utility>
#include <variant>

namespace kestro {

/// Why something could not be done, in one line for a person.
struct Error {
    QString message;
};

/// A value, or the reason why there is none. For operations whose caller can tell the user why; where absence
/// says it all, std::optional is used instead. The reason is an Error, or a kind of fault (an enumeration or
/// a small value) where callers tell one from the other or say it in a person's own language.
template <typename T, typename Reason = Error>
class [[nodiscard]] Result {
public:
    Result(T value) // NOLINT(google-explicit-constructor): a value is returned as it is
        : m_state(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Reason reason) // NOLINT(google-explicit-constructor): likewise a reason
        : m_state(std::in_place_index<1>, std::move(reason))
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

    /// The reason, as it passes up: `if (!text) return text.failure();`. Only where not isOk().
    [[nodiscard]] const Reason& failure() const
    {
        assert(!isOk());
        return std::get<1>(m_state);
    }
    /// The reason's words; only where not isOk().
    [[nodiscard]] const QString& error() const requires std::same_as<Reason, Error>
    {
        return failure().message;
    }

private:
    std::variant<T, Reason> m_state;
};

/// Whether something was done, or the reason why not. `return {};` says that it was.
template <typename Reason>
class [[nodiscard]] Result<void, Reason> {
public:
    Result() = default;
    Result(Reason reason) // NOLINT(google-explicit-constructor): a reason is returned as it is
        : m_failure(std::move(reason))
    {
    }

    [[nodiscard]] bool isOk() const { return !m_failure.has_value(); }
    explicit operator bool() const { return isOk(); }

    /// The reason, as it passes up; only where not isOk().
    [[nodiscard]] const Reason& failure() const
    {
        assert(!isOk());
        return *m_failure;
    }
    /// The reason's words; only where not isOk().
    [[nodiscard]] const QString& error() const requires std::same_as<Reason, Error>
    {
        return failure().message;
    }

private:
    std::optional<Reason> m_failure;
};

} // namespace kestro
