#include "platform/movie/MovieServer.h"

namespace kestro {

static constexpr int longestWait = 180000;

bool MovieServer::start()
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(MOVIE_SERVER), {QStringLiteral(KESTRO_TEST_MOVIES)});
    if (!m_process.waitForReadyRead(longestWait)) return false;
    m_port = m_process.readLine().trimmed().toInt();
    return m_port > 0;
}

void MovieServer::stop()
{
    if (m_process.state() == QProcess::NotRunning) return;
    m_process.closeWriteChannel();
    m_process.waitForFinished(longestWait);
}

QUrl MovieServer::addressOf(const char* path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/%2").arg(m_port).arg(QLatin1String(path)));
}

} // namespace kestro
