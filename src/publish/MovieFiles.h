#pragma once

#include "platform/base/Result.h"

#include <QStringList>

namespace kestro {

/// The files below `folder` whose names end as movies' do, as paths relative to it, sorted. Links to files
/// and folders are followed, each folder is entered once, what is in `excluded` (a folder, may not exist) or
/// hidden is passed over. The error says why the folder itself cannot be read.
[[nodiscard]] Result<QStringList> movieFilesBelow(const QString& folder, const QString& excluded);

} // namespace kestro
