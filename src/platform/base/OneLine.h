#pragma once

#include <QString>

namespace kestro {

/// Words of whatever origin with a blank in the place of each character that ends a line, that controls
/// something or that turns the direction of the text. Any thread. Tested by LogTest.
[[nodiscard]] QString onOneLine(QString words);

} // namespace kestro
