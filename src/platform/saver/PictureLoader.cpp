#include "platform/saver/PictureLoader.h"

#include "platform/base/PostTo.h"
#include "platform/saver/PictureReading.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace kestro {

namespace {

/// Has `work` done aside, and its result handed over. The application waits for its pool before it goes, so
/// it is there to post to.
template <typename Work, typename Handler>
void doAside(const std::shared_ptr<std::stop_source>& stop, Work work, Handler handler)
{
    runOn(*QThreadPool::globalInstance(), [stop, work = std::move(work), handler = std::move(handler)] {
        auto result = work(stop->get_token());
        if (stop->stop_requested()) return;
        postTo(*QCoreApplication::instance(), [stop, result = std::move(result), handler] {
            if (!stop->stop_requested()) handler(result);
        });
    });
}

} // namespace

void PictureLoader::list(const QString& folder, std::function<void(const QStringList&)> onList)
{
    doAside(
        m_stop, [folder](const std::stop_token& stop) { return listPictures(folder, stop); },
        std::move(onList));
}

void PictureLoader::read(const QString& path, QSize room, std::function<void(const Result<QImage>&)> onRead)
{
    doAside(
        m_stop, [path, room](const std::stop_token& stop) { return readPicture(path, room, stop); },
        std::move(onRead));
}

void PictureLoader::cancel()
{
    m_stop->request_stop();
    m_stop = std::make_shared<std::stop_source>();
}

} // namespace kestro
