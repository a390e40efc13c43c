#pragma once

#include <QFunctionPointer>
#include <QString>

namespace kestro {

/// The function `name` of the package's library lib/kestro/libkestro-<library>.so, which is loaded for it and
/// stays loaded; null, and why on standard error, when it cannot be had. For what takes long to load and few
/// need. Main thread. Tested by test_loading.
[[nodiscard]] QFunctionPointer functionOf(const QString& library, const char* name);

} // namespace kestro
