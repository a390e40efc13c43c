#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace kestro {

/// The environment of the web helper, as NAME=VALUE: of `own` only what says in which language, with which
/// fonts and over which sound server; no desktop, no keys, no passwords. What programs keep goes to the
/// folder `home`. Root alone has no sandbox in the browser, so that root's tests may say that they do
/// without. Any thread.
[[nodiscard]] QStringList helperEnvironment(const QProcessEnvironment& own, const QString& home, bool isRoot);

} // namespace kestro
