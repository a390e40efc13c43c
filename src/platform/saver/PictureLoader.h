#pragma once

#include "platform/base/Result.h"

#include <QImage>
#include <QStringList>

#include <functional>
#include <memory>
#include <stop_token>

namespace kestro {

/// Finds and reads pictures aside, on a thread of Qt's pool, and hands them over on the main thread, inside
/// the event loop. Owned by who shows them. Main thread. Tested by PictureReadingTest.
class PictureLoader final {
public:
    PictureLoader() = default;
    ~PictureLoader() { cancel(); }
    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;

    /// As listPictures and readPicture do it. The handler is called once, unless this is cancelled before.
    void list(const QString& folder, std::function<void(const QStringList&)> onList);
    void read(const QString& path, QSize room, std::function<void(const Result<QImage>&)> onRead);
    /// Ends what is under way; its handlers are not called any more.
    void cancel();

private:
    /// Shared with the work under way, which asks it whether anybody still waits.
    std::shared_ptr<std::stop_source> m_stop = std::make_shared<std::stop_source>();
};

} // namespace kestro
