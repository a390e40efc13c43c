#pragma once

#include <QUrl>

#include <memory>
#include <variant>

namespace kestro {

class QTMovie;

/// What a movie frame can show: nothing, a movie, or the address of web content.
/// A movie is shared by the frame that shows it and the engine that opened it.
using MovieContent = std::variant<std::monostate, std::shared_ptr<QTMovie>, QUrl>;

/// Whether there is nothing to show.
[[nodiscard]] inline bool isEmpty(const MovieContent& content)
{
    return std::holds_alternative<std::monostate>(content);
}

} // namespace kestro
