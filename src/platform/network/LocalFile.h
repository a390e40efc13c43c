#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

class QUrl;

namespace kestro {

/// The bytes of the plain file that a file URL names, `limit` at most. A folder, a pipe or a device is an
/// error, never a wait. Any thread. Tested by CurlFetchFileTest.
[[nodiscard]] FetchResult readLocalFile(const QUrl& url, qint64 limit, const Cancellation::Watch& watch);

} // namespace kestro
