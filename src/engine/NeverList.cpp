#include "engine/NeverList.h"

#include "platform/base/FileReplacement.h"
#include "platform/base/Log.h"
#include "platform/base/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace kestro {

namespace {

constexpr qint64 mostBytes = 16LL * 1024 * 1024;

QString textOf(const QUrl& movie)
{
    return QString::fromLatin1(movie.toEncoded());
}

} // namespace

NeverList::NeverList(QString path)
    : m_path(std::move(path))
{
    if (read() && !m_movies.isEmpty())
        logLine(QStringLiteral("Never played, as %1 says: %2 movies.").arg(m_path).arg(m_movies.size()));
}

bool NeverList::holds(const QUrl& movie) const
{
    return !m_movies.isEmpty() && m_movies.contains(textOf(movie));
}

void NeverList::add(const QUrl& movie)
{
    const bool isKnown = read();
    m_movies.removeAll(textOf(movie));
    m_movies.append(textOf(movie));
    if (isKnown) write();
}

std::optional<QUrl> NeverList::takeBack()
{
    const bool isKnown = read();
    if (m_movies.isEmpty()) return {};
    const QUrl movie(m_movies.takeLast());
    if (isKnown) write();
    return movie;
}

/// False where there is a file that cannot be read, which is therefore not written over.
bool NeverList::read()
{
    if (!QFile::exists(m_path)) return true;
    const auto bytes = readRegularFile(m_path, mostBytes);
    if (!bytes) {
        logLine(QStringLiteral("Cannot read %1: %2").arg(m_path, bytes.error()));
        return false;
    }
    m_movies.clear();
    for (const QByteArray& line : bytes.value().split('\n'))
        if (const QUrl movie(QString::fromUtf8(line.trimmed())); !movie.isEmpty())
            m_movies.append(textOf(movie));
    return true;
}

void NeverList::write()
{
    QDir().mkpath(QFileInfo(m_path).path());
    QByteArray text;
    for (const QString& movie : std::as_const(m_movies))
        text += movie.toLatin1() + '\n';
    const auto written = replaceFile(m_path, text);
    if (!written) logLine(QStringLiteral("Cannot write %1: %2").arg(m_path, written.error()));
}

} // namespace kestro
