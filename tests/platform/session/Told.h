#pragma once

#include "platform/session/IdleSource.h"

#include <QStringList>

namespace kestro {

/// What a source has told, in its order.
class Told final {
public:
    [[nodiscard]] IdleSource::Handlers handlers()
    {
        return {[this] { words << QStringLiteral("idle"); }, [this] { words << QStringLiteral("active"); },
                [this] { words << QStringLiteral("lost"); }};
    }
    [[nodiscard]] bool isLast(const char* word) const
    {
        return !words.isEmpty() && words.last() == QLatin1String(word);
    }

    QStringList words;
};

/// Longer than any test takes.
constexpr std::chrono::hours forGood{10};

} // namespace kestro
