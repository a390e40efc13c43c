#include "host/render/PictureQueue.h"

#include "host/render/PictureFolder.h"
#include "platform/base/PostTo.h"

#include <QImage>

namespace kestro {

namespace {

constexpr int mostWaiting = 4;
// One core is left to the saver even where there are only two.
constexpr int mostThreads = 1;

} // namespace

PictureQueue::PictureQueue(const PictureFolder& folder)
    : m_folder(folder)
    , m_room(mostWaiting)
{
    m_threads.setMaxThreadCount(mostThreads);
}

PictureQueue::~PictureQueue()
{
    finish();
}

void PictureQueue::add(const QImage& picture, int screen, double seconds)
{
    m_room.acquire();
    runOn(m_threads, [this, picture, screen, seconds] {
        write(picture, screen, seconds);
        m_room.release();
    });
}

void PictureQueue::finish()
{
    m_threads.waitForDone();
}

Result<void> PictureQueue::written() const
{
    const QMutexLocker guard(&m_mutex);
    return m_written;
}

void PictureQueue::write(const QImage& picture, int screen, double seconds)
{
    const auto written = m_folder.write(picture, screen, seconds);
    if (written) return;
    const QMutexLocker guard(&m_mutex);
    if (m_written) m_written = written.failure();
}

} // namespace kestro
