#pragma once

#include "support/WaitUntil.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <memory>

namespace kestro {

class OpenGL;
class QTMovie;

/// The test movie of that name, as a URL.
[[nodiscard]] QUrl testMovie(const char* name);

/// What movies are drawn with, by KESTRO_RENDERER; null for software.
[[nodiscard]] std::shared_ptr<OpenGL> testOpenGL();

/// The same movie once it is no longer loading; null stays null.
[[nodiscard]] std::shared_ptr<QTMovie> settled(std::shared_ptr<QTMovie> movie);

/// Opens a real movie, its sound played to nothing, and waits until it is loaded or has failed.
[[nodiscard]] std::shared_ptr<QTMovie> openMovie(const QUrl& url);

/// What the movie's layer draws when it is looked at, a null image when it draws nothing.
[[nodiscard]] QImage drawn(QTMovie& movie, int width = 320, int height = 180);

/// The number that a picture of a numbered movie shows; -1 when it shows none.
[[nodiscard]] int numberIn(const QImage& picture);

/// Threads of this process.
[[nodiscard]] int threadCount();

/// Threads of this process that are not among those, by their numbers.
[[nodiscard]] QStringList threadsBeside(const QStringList& known);

/// What they are called; without those that end while they are looked at.
[[nodiscard]] QStringList threadNames();

/// Reads the newest number as the movie plays, each time it changes, until `done`; answers whether it came to
/// be.
[[nodiscard]] bool watch(QTMovie& movie, std::vector<int>& numbers, const std::function<bool()>& done);

} // namespace kestro
