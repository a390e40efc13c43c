#include "engine/ShuffleRecord.h"

#include "platform/base/Descriptor.h"
#include "platform/base/FileReplacement.h"
#include "platform/base/Log.h"
#include "platform/base/RegularFile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <utility>

namespace kestro {

namespace {

constexpr int hopeless = 3; ///< runs in a row
constexpr qint64 mostBytes = 64LL * 1024 * 1024;
constexpr int mostPauses = 20;
constexpr unsigned long pause = 5; ///< milliseconds
const QByteArray heading = QByteArrayLiteral("kestro-shuffle 1");

/// The right to change the file, or none where somebody has it for long or nobody can have it.
Descriptor takeLock(const QString& path)
{
    Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
    for (int pauses = 0; file.isOpen() && flock(file.number(), LOCK_EX | LOCK_NB) != 0; ++pauses) {
        if (errno != EWOULDBLOCK || pauses == mostPauses) return {};
        QThread::msleep(pause);
    }
    return file;
}

/// One line: "seen MARK" or "failed MARK TIMES". False where it is neither.
bool takeLine(const QByteArray& line, ShuffleRecord::Contents& contents)
{
    const QList<QByteArray> words = line.split(' ');
    bool isMark = false;
    const ShuffleRecord::Mark mark = words.value(1).toULongLong(&isMark, 16);
    if (!isMark) return false;
    if (words.size() == 2 && words[0] == "seen") return contents.seen.insert(mark).second;
    bool isCount = false;
    const int count = words.value(2).toInt(&isCount);
    if (words.size() != 3 || words[0] != "failed" || !isCount || count < 1) return false;
    return contents.failures.emplace(mark, count).second;
}

std::optional<ShuffleRecord::Contents> contentsOf(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    if (lines.takeFirst() != heading || lines.isEmpty() || !lines.takeLast().isEmpty()) return {};
    ShuffleRecord::Contents contents;
    for (const QByteArray& line : lines)
        if (!takeLine(line, contents)) return {};
    return contents;
}

QByteArray textOf(const ShuffleRecord::Contents& contents)
{
    QByteArray text = heading + '\n';
    for (const auto mark : contents.seen)
        text += "seen " + QByteArray::number(qulonglong(mark), 16) + '\n';
    for (const auto& [mark, count] : contents.failures)
        text += "failed " + QByteArray::number(qulonglong(mark), 16) + ' ' + QByteArray::number(count) + '\n';
    return text;
}

} // namespace

ShuffleRecord::ShuffleRecord(QString path)
    : m_path(std::move(path))
{
    QDir().mkpath(QFileInfo(m_path).path());
    read();
}

// FNV-1a: short, well spread, and the same for ever.
ShuffleRecord::Mark ShuffleRecord::markOf(const QUrl& movie)
{
    Mark mark = 0xcbf29ce484222325U;
    for (const char byte : movie.toEncoded())
        mark = (mark ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    return mark;
}

// A long list is kept from one pick to the next, and is then the very same.
std::shared_ptr<const std::vector<ShuffleRecord::Mark>> ShuffleRecord::marksOf(const QList<QUrl>& list)
{
    if (m_marks && m_list.constData() == list.constData() && m_list.size() == list.size()) return m_marks;
    std::vector<Mark> marks;
    marks.reserve(static_cast<std::size_t>(list.size()));
    for (const QUrl& movie : list)
        marks.push_back(markOf(movie));
    m_list = list;
    m_marks = std::make_shared<const std::vector<Mark>>(std::move(marks));
    return m_marks;
}

bool ShuffleRecord::isHopeless(Mark movie) const
{
    const auto failures = m_contents.failures.find(movie);
    return failures != m_contents.failures.end() && failures->second >= hopeless;
}

bool ShuffleRecord::change(const std::function<bool(Contents&)>& change)
{
    const Descriptor lock = takeLock(m_path + QStringLiteral(".lock"));
    if (lock.isOpen()) read();
    takeFailures();
    const bool answer = change(m_contents);
    if (lock.isOpen())
        write();
    else if (!std::exchange(m_isMentioned, true))
        logLine(QStringLiteral("Cannot lock %1: what was played is not remembered.").arg(m_path));
    return answer;
}

void ShuffleRecord::keepFailures()
{
    if (!m_failed.empty()) static_cast<void>(change([](Contents&) { return true; }));
}

// Once a run, however often they failed in it.
void ShuffleRecord::takeFailures()
{
    for (const Mark mark : std::exchange(m_failed, {}))
        if (m_counted.insert(mark).second) ++m_contents.failures[mark];
}

void ShuffleRecord::read()
{
    if (!QFile::exists(m_path)) return;
    const auto text = readRegularFile(m_path, mostBytes);
    const auto contents = text ? contentsOf(text.value()) : std::nullopt;
    if (!contents) logLine(QStringLiteral("%1 is damaged: a new shuffle begins.").arg(m_path));
    m_contents = contents.value_or(Contents());
}

void ShuffleRecord::write()
{
    const auto written = replaceFile(m_path, textOf(m_contents));
    if (!written && !std::exchange(m_isMentioned, true))
        logLine(QStringLiteral("Cannot write %1: %2").arg(m_path, written.error()));
}

} // namespace kestro
